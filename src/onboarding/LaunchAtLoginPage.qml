import QtQuick
import Vantrel.Onboarding

OnboardingPage {
    id: root

    portrait: "tobble-content"
    title: qsTr("One last thing — launch at login?")
    body: qsTr("Tobble can't fetch you if he's not running. Most people turn this on. You can change it any time in Preferences.")
    primaryText: qsTr("Finish")
    onPrimaryChosen: root.viewModel.acknowledge()
    Component.onCompleted: root.viewModel.refresh()

    LoginSwitch {
        width: parent.width
        viewModel: root.viewModel
    }

    PageText {
        width: parent.width
        text: qsTr("You're ready. Tobble will fetch you a minute before each meeting — Join, snooze with S, or dismiss with Esc.")
    }
}
