import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// Which program this is, and the way back to its defaults.
Column {
    id: root

    required property AboutTabModel viewModel

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("About")
        subtitle: qsTr("Who fetches you, and how to start over.")
    }

    Card {
        width: parent.width
        Accessible.name: qsTr("Version")

        Item {
            width: parent.width
            height: hero.height

            TobbleHero {
                id: hero
                anchors.left: parent.left
                assetName: "tobble-rescue"
                size: 112
            }

            Column {
                anchors.left: hero.right
                anchors.leftMargin: 20
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4

                Text {
                    anchors.left: parent.left
                    text: "Vantrel"
                    textFormat: Text.PlainText
                    color: root.ThemePaletteKey.palette.primaryText
                    font: Typography.rounded(Typography.size(2), Font.Bold)
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                Explanation {
                    objectName: "version"
                    anchors.left: parent.left
                    text: root.viewModel.version
                }
            }
        }
    }

    SettingCard {
        width: parent.width
        title: qsTr("Reset all preferences")

        Explanation {
            width: parent.width
            text: qsTr("Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, work hours, theme. Login Items state stays the way you set it in System Settings.")
        }

        OutlinedButton {
            objectName: "askReset"
            anchors.left: parent.left
            text: qsTr("Reset all preferences")
            symbol: "arrow.counterclockwise"
            onClicked: root.viewModel.showingResetConfirm = true
        }
    }
}
