import QtQuick
import Vantrel.Theme

// Shows more and hides it again.
Pressable {
    id: root

    required property string text
    required property bool isOpen

    implicitWidth: Math.ceil(row.implicitWidth)
    ringRadius: 6
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.isOpen

    Row {
        id: row
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 12
            height: 12
            name: root.isOpen ? "chevron.up" : "chevron.down"
            color: root.ThemePaletteKey.palette.primaryText
        }

        Text {
            text: root.text
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            opacity: root.isHovered ? 0.75 : 1
            font: Typography.reading(Typography.size(0), Font.Medium)
            Accessible.ignored: true
        }
    }
}
