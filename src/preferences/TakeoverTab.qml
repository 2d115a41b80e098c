import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// When a takeover comes, and for how long.
Column {
    id: root

    required property TakeoverTabModel viewModel

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("Takeover")
        subtitle: qsTr("How and when Tobble brings you to your meetings.")
        tobbleAsset: "tobble-rescue"
    }

    ValueSettingCard {
        width: parent.width
        title: qsTr("Bring me to meetings")
        description: qsTr("How early Tobble fetches you before meetings start.")
        value: root.viewModel.leadTime.text

        Slider {
            objectName: "leadTime"
            width: parent.width
            title: qsTr("Bring me to meetings")
            valueText: root.viewModel.leadTime.text
            setting: root.viewModel.leadTime.value
            minimumValue: 0
            maximumValue: 300
            stepSize: 60
            onMoved: value => root.viewModel.leadTime.assign(value)
        }

        SliderEnds {
            width: parent.width
            first: qsTr("right at start")
            last: qsTr("5 min before")
        }
    }

    ValueSettingCard {
        width: parent.width
        title: qsTr("Snooze duration")
        description: qsTr("How long Tobble waits after you tap Snooze.")
        value: root.viewModel.snoozeDuration.text

        Stepper {
            objectName: "snoozeDuration"
            anchors.left: parent.left
            title: qsTr("Snooze duration")
            valueText: root.viewModel.snoozeDuration.text
            setting: root.viewModel.snoozeDuration.value
            minimumValue: 1
            maximumValue: 15
            stepSize: 1
            onMoved: value => root.viewModel.snoozeDuration.assign(value)
        }
    }

    ValueSettingCard {
        width: parent.width
        title: qsTr("Auto-close if I don't respond")
        description: qsTr("Takeover dismisses itself if you're away.")
        value: root.viewModel.autoClose.text

        Slider {
            objectName: "autoClose"
            width: parent.width
            title: qsTr("Auto-close if I don't respond")
            valueText: root.viewModel.autoClose.text
            setting: root.viewModel.autoClose.value
            minimumValue: 0
            maximumValue: 3600
            stepSize: 300
            onMoved: value => root.viewModel.autoClose.assign(value)
        }
    }
}
