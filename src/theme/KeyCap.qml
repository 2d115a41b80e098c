import QtQuick
import Vantrel.Theme

// A key of the keyboard, named by what is printed on it.
Rectangle {
    id: root

    required property string label
    property color ink: ThemePaletteKey.palette.primaryText
    property real pixelSize: Typography.size(0)

    readonly property real lip: Math.max(2, Math.round(root.pixelSize * 0.14))

    implicitWidth: Math.max(legend.implicitWidth + Math.round(root.pixelSize * 0.9),
                            root.implicitHeight)
    implicitHeight: Math.round(root.pixelSize * 1.75)
    radius: 6
    color: ThemePaletteKey.palette.dotStroke

    Rectangle {
        width: root.width
        height: root.height - root.lip
        radius: root.radius
        color: root.ThemePaletteKey.palette.dimSurface
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: 1

        Text {
            id: legend
            anchors.centerIn: parent
            text: root.label
            textFormat: Text.PlainText
            color: root.ink
            font: Typography.reading(root.pixelSize, Font.Medium)
            Accessible.ignored: true
        }
    }
}
