import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// What runs when the user joins.
SettingCard {
    id: root

    required property GeneralTabModel viewModel

    title: qsTr("Run Shortcut when you join")

    Explanation {
        width: parent.width
        text: qsTr("Fires a macOS Shortcut alongside opening the link. Leave blank to disable.")
    }

    Flow {
        width: parent.width
        spacing: 12

        TextField {
            objectName: "shortcut"
            width: Math.min(parent.width, 280)
            title: root.title
            placeholder: qsTr("Shortcut name")
            setting: root.viewModel.shortcut
            onEdited: text => root.viewModel.setShortcut(text)
        }

        OutlinedButton {
            objectName: "testShortcut"
            text: qsTr("Test this shortcut now")
            symbol: "play.fill"
            enabled: root.viewModel.canTestShortcut
            onClicked: root.viewModel.testShortcut()
        }
    }

    Disclosure {
        objectName: "details"
        anchors.left: parent.left
        text: root.viewModel.showShortcutDetails ? qsTr("Hide details") : qsTr("How this works")
        isOpen: root.viewModel.showShortcutDetails
        onClicked: root.viewModel.showShortcutDetails = !root.viewModel.showShortcutDetails
    }

    ShortcutDetails {
        objectName: "shortcutDetails"
        width: parent.width
        visible: root.viewModel.showShortcutDetails
    }
}
