import QtQuick
import Vantrel.Onboarding

OnboardingPage {
    id: root

    portrait: "tobble-thoughtful"
    title: qsTr("Allow notifications")
    subtitle: qsTr("Notifications — for the rare full-screen miss")
    body: qsTr("Vantrel's takeover usually covers everything, including full-screen apps. For the rare case it can't (some games, certain full-screen video calls), a notification is the backup. Optional — you can skip and turn it on later.")
    primaryText: qsTr("Continue")
    skipText: qsTr("Skip")
    onPrimaryChosen: root.viewModel.requestNotifications()
    onSkipped: root.viewModel.acknowledge()
    Component.onCompleted: root.viewModel.refresh()

    StatusRow {
        width: parent.width
        text: qsTr("Notifications")
        mark: isGiven ? qsTr("Allowed") : qsTr("Optional")
        symbol: isGiven ? "checkmark.circle.fill" : "bell"
        isGiven: root.viewModel.areNotificationsAllowed
    }
}
