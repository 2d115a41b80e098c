import QtQuick
import Vantrel.Theme

// What a shortcut is, how to make one, and what for.
Rectangle {
    id: root

    implicitHeight: column.implicitHeight + 32
    radius: 12
    color: root.ThemePaletteKey.palette.dimSurface

    Column {
        id: column
        x: 16
        y: 16
        width: parent.width - 32
        spacing: 8

        CardTitle {
            width: parent.width
            text: qsTr("What is this?")
        }

        Paragraph {
            width: parent.width
            text: qsTr("The Shortcuts app on your Mac lets you chain actions together — mute Slack, set a Focus mode, hide your desktop icons, open a notes template. Tobble can fire one of those for you the moment you join a meeting.")
        }

        Paragraph {
            width: parent.width
            sign: "1."
            text: qsTr("Open the Shortcuts app and build (or pick) the shortcut you want.")
        }

        Paragraph {
            width: parent.width
            sign: "2."
            text: qsTr("Give it a name you'll remember.")
        }

        Paragraph {
            width: parent.width
            sign: "3."
            text: qsTr("Type that exact name above, then tap ▶ to test.")
        }

        Item { width: 1; height: 4 }

        Repeater {
            model: [qsTr("Mute Slack and Discord"),
                    qsTr("Lower brightness on your second display"),
                    qsTr("Open today's notes template"),
                    qsTr("Pause Spotify"),
                    qsTr("Set Focus to \"In a meeting\""),
                    qsTr("Turn the smart lights to \"deep focus\"")]

            Paragraph {
                required property string modelData

                width: parent.width
                sign: "•"
                text: modelData
            }
        }

        Item { width: 1; height: 4 }

        Item {
            width: parent.width
            height: Math.max(shield.height, note.height)

            Symbol {
                id: shield
                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                width: 20
                height: 20
                name: "shield"
                color: root.ThemePaletteKey.palette.accent
            }

            Paragraph {
                id: note
                anchors.left: shield.right
                anchors.leftMargin: 10
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Shortcuts run on your Mac. Nothing about your meeting or the shortcut leaves the device.")
            }
        }
    }
}
