import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// The program's ways: at login, on joining.
Column {
    id: root

    required property GeneralTabModel viewModel

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("General")
        subtitle: qsTr("How Vantrel behaves in the background.")
        tobbleAsset: "tobble-acknowledging"
    }

    SettingCard {
        width: parent.width

        ToggleRow {
            objectName: "launchAtLogin"
            width: parent.width
            title: qsTr("Start Vantrel when you log in")
            description: qsTr("Adds Vantrel to your macOS Login Items so it's ready before your first meeting.")
            isOn: root.viewModel.isStartedAtLogin
            onFlipped: isOn => root.viewModel.setStartedAtLogin(isOn)
        }

        Warning {
            objectName: "loginError"
            width: parent.width
            visible: root.viewModel.loginError.length > 0
            text: root.viewModel.loginError
        }
    }

    SettingCard {
        width: parent.width
        title: qsTr("Open video meetings in")

        SegmentedChoice {
            objectName: "joinTarget"
            anchors.left: parent.left
            title: qsTr("Open video meetings in")
            options: root.viewModel.joinTargets
            current: root.viewModel.joinTarget
            onChosen: index => root.viewModel.selectJoinTarget(index)
        }

        Explanation {
            width: parent.width
            text: qsTr("App opens Zoom / Meet / Teams in their native app when installed. Browser always uses your default browser.")
        }
    }

    ShortcutCard {
        width: parent.width
        viewModel: root.viewModel
    }
}
