import QtQuick
import Vantrel.Onboarding
import Vantrel.Theme

OnboardingPage {
    id: root

    property bool isFired: false

    portrait: "tobble-acknowledging"
    title: qsTr("See it in action")
    body: qsTr("Tap the button to fire a demo takeover. Tobble will cover your screen the same way he will when a real meeting is a minute out — no surprise the first time it happens for real.")
    primaryText: qsTr("Continue")
    firstItem: show
    onPrimaryChosen: root.viewModel.acknowledge()

    OutlinedButton {
        id: show
        anchors.left: parent.left
        objectName: "show"
        text: root.isFired ? qsTr("Show again") : qsTr("Show me the takeover")
        symbol: "play.fill"
        onClicked: {
            root.isFired = true;
            root.viewModel.previewTakeover();
        }
    }

    Explanation {
        width: parent.width
        text: qsTr("It'll appear over everything, including full-screen apps. Press Esc to dismiss the preview.")
    }

    SymbolLine {
        width: parent.width
        visible: root.isFired
        symbol: "checkmark.circle.fill"
        text: qsTr("That's the takeover. It'll fire automatically a minute before each meeting.")
        weight: Font.Medium
    }
}
