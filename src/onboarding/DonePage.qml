import QtQuick
import Vantrel.Onboarding

// For those who open the first run after they have passed all of it.
OnboardingPage {
    id: root

    isHero: true
    portrait: "tobble-content"
    title: qsTr("You're ready. Tobble will fetch you a minute before each meeting — Join, snooze with S, or dismiss with Esc.")
    primaryText: qsTr("Finish")
    onPrimaryChosen: root.viewModel.acknowledge()
}
