import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// Asks whether the user means it. Until there is an answer nothing else can be reached.
FocusScope {
    id: root

    required property AboutTabModel viewModel

    // Back to where the question came from.
    property Item asker: null

    onVisibleChanged: {
        if (root.visible) {
            root.asker = root.Window.activeFocusItem;
            cancel.forceActiveFocus(Qt.TabFocusReason);
        } else if (root.asker !== null) {
            root.asker.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Rectangle {
        anchors.fill: parent
        opacity: 0.7
        color: root.ThemePaletteKey.palette.dimSurface
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: event => { event.accepted = true; }
    }

    Rectangle {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, Math.round(30 * Typography.size(0)))
        height: column.implicitHeight + 48
        radius: 16
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.dotStroke
        Accessible.role: Accessible.Dialog
        Accessible.name: title.text
        Accessible.description: message.text

        Column {
            id: column
            x: 24
            y: 24
            width: parent.width - 48
            spacing: 12

            Text {
                id: title
                width: parent.width
                text: qsTr("Reset all of Tobble's preferences?")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
                color: root.ThemePaletteKey.palette.primaryText
                font: Typography.rounded(Typography.size(1), Font.Bold)
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            Explanation {
                id: message
                width: parent.width
                text: qsTr("This can't be undone. You'll need to grant calendar permission again the next time you open Preferences.")
            }

            Item {
                width: parent.width
                height: reset.implicitHeight + 8

                OutlinedButton {
                    id: cancel
                    objectName: "cancel"
                    anchors.right: reset.left
                    anchors.rightMargin: 12
                    anchors.bottom: parent.bottom
                    height: reset.height
                    text: qsTr("Cancel")
                    onClicked: root.viewModel.showingResetConfirm = false
                }

                FilledButton {
                    id: reset
                    objectName: "reset"
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    text: qsTr("Reset")
                    onClicked: root.viewModel.reset()
                }
            }
        }
    }
}
