import QtQuick
import Vantrel.Theme

// The primary action of a window.
Pressable {
    id: root

    required property string text
    property string symbol: ""

    readonly property color ink: root.ThemePaletteKey.palette.accentForeground
    readonly property real pixelSize: 1.15 * Typography.size(0)

    implicitWidth: Math.ceil(row.implicitWidth) + root.implicitHeight
    implicitHeight: Math.max(40, Math.round(2.6 * Typography.size(0)))
    Accessible.name: root.text

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.ThemePaletteKey.palette.accent
    }

    Rectangle {
        anchors.fill: parent
        visible: root.isHovered
        opacity: root.isDown ? 0.24 : 0.12
        radius: height / 2
        // Away from the label's own colour.
        color: root.ThemePaletteKey.palette.primaryText
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
            color: root.ink
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            textFormat: Text.PlainText
            color: root.ink
            font: Typography.rounded(root.pixelSize, Font.Bold)
            Accessible.ignored: true
        }
    }
}
