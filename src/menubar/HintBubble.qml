import QtQuick
import Vantrel.Theme

// The bubble of a hint: beneath its target, or above where there is no room.
Rectangle {
    id: root

    required property Item stage
    required property Item target
    required property string text

    readonly property point place: root.target.mapToItem(root.stage, 0, root.target.height + 6)
    readonly property bool isBeneath: root.place.y + root.height + 6 < root.stage.height

    objectName: "hint"
    parent: root.stage
    z: 10
    x: Math.max(6, Math.min(root.place.x + (root.target.width - root.width) / 2,
                            root.stage.width - root.width - 6))
    y: root.isBeneath ? root.place.y
                      : Math.max(6, root.place.y - root.target.height - root.height - 12)
    width: Math.ceil(Math.min(label.implicitWidth, root.stage.width - 32)) + 16
    height: label.height + 10
    radius: 6
    color: root.target.ThemePaletteKey.palette.primaryText
    Accessible.ignored: true

    // So that a pointer that only passes by stirs nothing up.
    SequentialAnimation on opacity {
        PropertyAction { value: 0 }
        PauseAnimation { duration: 500 }
        PropertyAction { value: 1 }
    }

    Text {
        id: label
        x: 8
        y: 5
        width: root.width - 16
        text: root.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        maximumLineCount: 6
        elide: Text.ElideRight
        color: root.target.ThemePaletteKey.palette.surfaceBackground
        font: Typography.reading(Typography.size(-1), Font.Normal)
        Accessible.ignored: true
    }
}
