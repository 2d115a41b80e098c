import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// What the status item tells.
Column {
    id: root

    required property MenuBarTabModel viewModel

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("Menu Bar")
        subtitle: qsTr("How Vantrel appears in your menu bar.")
        tobbleAsset: "tobble-thoughtful"
    }

    SettingCard {
        width: parent.width

        ToggleRow {
            objectName: "showNextMeeting"
            width: parent.width
            title: qsTr("Show next meeting beside the icon")
            description: qsTr("Displays the next event's title, color, and countdown. During a meeting, switches to \"ends in X\".")
            isOn: root.viewModel.showNextMeeting.isOn
            onFlipped: isOn => root.viewModel.showNextMeeting.assign(isOn)
        }
    }

    ValueSettingCard {
        width: parent.width
        title: qsTr("Tobble peeks ahead")
        description: qsTr("Meetings further away stay hidden until they slide in.")
        value: root.viewModel.upcomingHorizon.text

        Slider {
            objectName: "upcomingHorizon"
            width: parent.width
            title: qsTr("Tobble peeks ahead")
            valueText: root.viewModel.upcomingHorizon.text
            setting: root.viewModel.upcomingHorizon.value
            minimumValue: 30
            maximumValue: 480
            stepSize: 30
            onMoved: value => root.viewModel.upcomingHorizon.assign(value)
        }

        SliderEnds {
            width: parent.width
            first: qsTr("30 min")
            last: qsTr("8 hours")
        }
    }
}
