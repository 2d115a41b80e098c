import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// The calendars of one account.
SettingCard {
    id: root

    required property calendarAccount account
    required property var selected

    signal picked(string identifier, bool isSelected)

    title: root.account.title

    Column {
        width: parent.width

        Repeater {
            model: root.account.calendars

            // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            CalendarRow {
                required property calendarOffer modelData

                width: parent.width
                calendar: modelData
                isSelected: root.selected.indexOf(modelData.identifier) >= 0
                onFlipped: isSelected => root.picked(modelData.identifier, isSelected)
            }
            // qmllint enable unqualified
        }
    }
}
