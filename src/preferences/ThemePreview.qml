import QtQuick
import Vantrel.Theme

// A takeover in small.
Rectangle {
    id: root

    implicitHeight: column.implicitHeight + 40
    radius: 12
    color: root.ThemePaletteKey.palette.dimSurface
    border.color: root.ThemePaletteKey.palette.dotStroke

    Column {
        id: column
        anchors.centerIn: parent
        width: parent.width - 32
        spacing: 4

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 44
            height: 44
            radius: 22
            color: root.ThemePaletteKey.palette.surfaceBackground
            border.color: root.ThemePaletteKey.palette.dotStroke

            Symbol {
                anchors.centerIn: parent
                width: 28
                height: 28
                name: "pawprint.fill"
                color: root.ThemePaletteKey.palette.accent
            }
        }

        Text {
            width: parent.width
            text: qsTr("Standup")
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.rounded(Typography.size(2), Font.Bold)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            width: parent.width
            bottomPadding: 8
            text: qsTr("starts in 0:58")
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.rounded(Typography.size(0), Font.Medium)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        // A picture of a button: there is nothing to join.
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.ceil(join.implicitWidth) + 48
            height: 36
            radius: 18
            color: root.ThemePaletteKey.palette.accent

            Text {
                id: join
                anchors.centerIn: parent
                text: qsTr("Join")
                textFormat: Text.PlainText
                color: root.ThemePaletteKey.palette.accentForeground
                font: Typography.rounded(1.15 * Typography.size(0), Font.Bold)
                Accessible.ignored: true
            }
        }
    }
}
