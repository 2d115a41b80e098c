import QtQuick
import Vantrel.Theme

// How far the first run is, in words and as a strip.
Item {
    id: root

    required property int number
    required property int count
    property int moveLength: 0

    readonly property bool isOver: root.number > root.count
    readonly property string label: qsTr("Step %1 of %2").arg(root.number).arg(root.count)

    implicitHeight: words.height + 8 + track.height
    Accessible.role: Accessible.ProgressBar
    Accessible.name: root.isOver ? "" : root.label

    Text {
        id: words
        objectName: "progressWords"
        anchors.left: parent.left
        opacity: root.isOver ? 0 : 1
        text: root.label
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.secondaryText
        font: Typography.reading(0.9 * Typography.size(0), Font.Medium)
        Accessible.ignored: true
    }

    Rectangle {
        id: track
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 4
        radius: 2
        color: root.ThemePaletteKey.palette.dotStroke

        Rectangle {
            anchors.left: parent.left
            width: Math.round(parent.width * Math.min(1, root.number / root.count))
            height: parent.height
            radius: 2
            color: root.ThemePaletteKey.palette.accent

            Behavior on width {
                NumberAnimation { duration: root.moveLength; easing.type: Easing.OutCubic }
            }
        }
    }
}
