import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// Which calendars count.
Column {
    id: root

    required property CalendarsTabModel viewModel

    readonly property bool isGranted: root.viewModel.access === CalendarsTabModel.Granted
    readonly property bool isEmpty: root.viewModel.accounts.length === 0

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("Calendars")
        subtitle: qsTr("Pick the calendars Tobble watches.")
        tobbleAsset: root.isGranted ? "tobble-curious-calendar" : ""
    }

    CalendarAccessPrompt {
        objectName: "prompt"
        width: parent.width
        visible: !root.isGranted
        canGrant: root.viewModel.access === CalendarsTabModel.Missing
        onGranted: root.viewModel.grantAccess()
    }

    Card {
        objectName: "nothing"
        width: parent.width
        visible: root.isGranted && root.isEmpty

        CardTitle {
            width: parent.width
            text: qsTr("No calendars found.")
        }
    }

    Repeater {
        model: root.isGranted ? root.viewModel.accounts : []

        // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
        // qmllint disable unqualified
        CalendarAccountCard {
            required property calendarAccount modelData

            width: root.width
            account: modelData
            selected: root.viewModel.selected
            onPicked: (identifier, isSelected) => root.viewModel.setSelected(identifier, isSelected)
        }
        // qmllint enable unqualified
    }

    CalendarPlaces {
        objectName: "places"
        width: parent.width
        visible: !root.isGranted || root.isEmpty
    }
}
