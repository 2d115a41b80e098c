import QtQuick
import QtQuick.Window
import Vantrel.Onboarding
import Vantrel.Theme

OnboardingPage {
    id: root

    readonly property bool isGranted: root.viewModel.hasCalendarAccess
    readonly property bool isWatching: root.Window.visibility !== Window.Hidden

    portrait: "tobble-curious-calendar"
    title: qsTr("Calendar access")
    body: qsTr("macOS will ask once for permission to read your calendar. Tobble needs this to know when your meetings start. Your calendar never leaves this Mac — there's no backend.")
    primaryText: root.isGranted ? qsTr("Continue") : qsTr("Grant access")
    isPrimaryEnabled: !root.viewModel.isAskingForCalendars
    onPrimaryChosen: root.isGranted ? root.viewModel.acknowledge()
                                    : root.viewModel.requestCalendarAccess()
    onIsWatchingChanged: root.isWatching ? root.viewModel.watchCalendarAccess()
                                         : root.viewModel.leaveCalendarAccess()
    Component.onDestruction: root.viewModel.leaveCalendarAccess()

    StatusRow {
        width: parent.width
        text: qsTr("Calendar — Full access")
        mark: root.isGranted ? qsTr("Granted") : qsTr("Needed")
        symbol: root.isGranted ? "checkmark.circle.fill" : "circle"
        isGiven: root.isGranted
    }

    Explanation {
        width: parent.width
        visible: !root.isGranted
        text: qsTr("If macOS doesn't prompt (e.g. you previously declined), open System Settings → Privacy & Security → Calendars and enable Vantrel.")
    }

    SymbolLine {
        width: parent.width
        visible: root.isGranted
        symbol: "checkmark.seal.fill"
        text: qsTr("Tobble can see your meetings now.")
        weight: Font.DemiBold
    }

    Explanation {
        width: parent.width
        visible: root.isGranted
        text: qsTr("All your calendars — work and personal — read together.")
    }
}
