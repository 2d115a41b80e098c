import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// When no takeover comes.
Column {
    id: root

    required property EventFiltersTabModel viewModel

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("Event Filters")
        subtitle: qsTr("Tell Tobble when to stay quiet.")
        tobbleAsset: "tobble-friday-relaxed"
    }

    SettingCard {
        width: parent.width

        ToggleRow {
            objectName: "workHours"
            width: parent.width
            title: qsTr("Only during work hours")
            description: qsTr("Outside the window below, Tobble stays quiet — no takeovers.")
            isOn: root.viewModel.workHours.isOn
            onFlipped: isOn => root.viewModel.workHours.assign(isOn)
        }

        WorkHoursEditor {
            width: parent.width
            viewModel: root.viewModel
        }
    }

    Card {
        width: parent.width
        color: root.ThemePaletteKey.palette.dimSurface
        Accessible.name: heading.text

        Item {
            width: parent.width
            height: texts.height

            Symbol {
                id: shield
                anchors.left: parent.left
                anchors.top: parent.top
                width: 24
                height: 24
                name: "checkmark.shield"
                color: root.ThemePaletteKey.palette.accent
            }

            Column {
                id: texts
                anchors.left: shield.right
                anchors.leftMargin: 12
                anchors.right: parent.right
                spacing: 4

                CardTitle {
                    id: heading
                    width: parent.width
                    text: qsTr("Tobble already skips these")
                }

                Explanation {
                    width: parent.width
                    // The secondary colour is too weak on the dim surface.
                    color: root.ThemePaletteKey.palette.primaryText
                    text: qsTr("Declined events, all-day events, and focus-time blocks never trigger takeovers — regardless of the filters above.")
                }
            }
        }
    }
}
