import QtQuick
import Vantrel.Theme

// An action that is not the primary one.
Pressable {
    id: root

    required property string text
    property string symbol: ""

    readonly property real pixelSize: Typography.size(0)

    implicitWidth: Math.ceil(row.implicitWidth) + root.implicitHeight
    implicitHeight: Math.max(36, Math.round(2.4 * root.pixelSize))
    Accessible.name: root.text

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.isDown ? root.ThemePaletteKey.palette.dotStroke
                           : root.isHovered ? root.ThemePaletteKey.palette.dimSurface
                                            : root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.dotStroke
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol.length > 0
            width: Math.round(root.pixelSize)
            height: width
            name: root.symbol
            color: root.ThemePaletteKey.palette.accent
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(root.pixelSize, Font.Medium)
            Accessible.ignored: true
        }
    }
}
