import QtQuick
import Vantrel.Theme

// How calendars come to the program: there is no page of the system's to send the user to.
SettingCard {
    id: root

    title: qsTr("Where calendars come from")

    CalendarPlace {
        width: parent.width
        symbol: "person.crop.circle"
        title: qsTr("Accounts")
        text: qsTr("Add them in your desktop's settings, under online accounts, or in its calendar program. Vantrel sees each account that Evolution Data Server keeps, with no further sign-in.")
    }

    CalendarPlace {
        width: parent.width
        symbol: "folder"
        title: qsTr("Folders")
        text: qsTr("Put a folder of .ics files into ~/.local/share/Vantrel/calendars, or name folders and files of your own in ~/.config/Vantrel/calendars.json. Both count at once.")
    }
}
