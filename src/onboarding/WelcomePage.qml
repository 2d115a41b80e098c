import QtQuick
import Vantrel.Onboarding

OnboardingPage {
    id: root

    isHero: true
    hasBack: false
    portrait: "tobble-friday-relaxed"
    title: qsTr("Tobble fetches you to your meetings.")
    body: qsTr("A minute before each meeting, Tobble takes over your screen and brings you to it — unmissable, but warm. Calendar data stays on your Mac.")
    primaryText: qsTr("Get started")
    onPrimaryChosen: root.viewModel.acknowledge()

    BulletRow {
        width: parent.width
        symbol: "calendar.badge.clock"
        text: qsTr("Reads your Calendar — Google, iCloud, Exchange, Outlook, whatever you've got.")
    }

    BulletRow {
        width: parent.width
        symbol: "bell.badge"
        text: qsTr("One minute before a meeting, Tobble fetches you. One key joins.")
    }

    BulletRow {
        width: parent.width
        symbol: "lock.shield"
        text: qsTr("No backend, no cloud, no telemetry. Your calendar never leaves this Mac.")
    }
}
