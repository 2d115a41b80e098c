import QtQuick
import Vantrel.Theme

// What is shown where there is nothing to list.
Item {
    id: root

    required property string line

    Column {
        anchors.centerIn: parent
        width: parent.width - 48
        spacing: 12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 48
            height: 48
            name: "moon.zzz"
            color: root.ThemePaletteKey.palette.accent
        }

        Text {
            objectName: "emptyLine"
            width: parent.width
            text: root.line
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.rounded(1.1 * Typography.size(0), Font.Medium)
            Accessible.role: Accessible.StaticText
            Accessible.name: root.line
        }
    }
}
