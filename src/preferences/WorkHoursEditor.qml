import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// The hours and days of takeovers. They can be set ahead, while the filter is off.
Column {
    id: root

    required property EventFiltersTabModel viewModel

    spacing: 12

    Rectangle {
        width: parent.width
        height: 1
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Flow {
        width: parent.width
        spacing: 12

        TimeField {
            objectName: "start"
            title: qsTr("From")
            time: root.viewModel.start
        }

        TimeField {
            objectName: "end"
            title: qsTr("to")
            time: root.viewModel.end
        }
    }

    Flow {
        width: parent.width
        spacing: 8
        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Days")

        Repeater {
            model: root.viewModel.weekdays

            // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            WeekdayChip {
                required property weekdayOffer modelData

                day: modelData
                isChosen: root.viewModel.chosenWeekdays.indexOf(modelData.weekday) >= 0
                onClicked: root.viewModel.choose(modelData.weekday, !isChosen)
            }
            // qmllint enable unqualified
        }
    }

    Item {
        width: parent.width
        height: Math.max(clock.height, meaning.height)

        Symbol {
            id: clock
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            name: "clock"
            color: root.ThemePaletteKey.palette.accent
        }

        Explanation {
            id: meaning
            objectName: "meaning"
            anchors.left: clock.right
            anchors.leftMargin: 10
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: root.viewModel.meaning
        }
    }
}
