import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// A day of the week, chosen or not.
Pressable {
    id: root

    required property weekdayOffer day
    required property bool isChosen

    implicitWidth: Math.max(48, Math.ceil(label.implicitWidth) + 24)
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.day.name
    Accessible.checkable: true
    Accessible.checked: root.isChosen
    Accessible.onToggleAction: root.clicked()

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.isChosen ? root.ThemePaletteKey.palette.dotStroke
                             : root.isHovered ? root.ThemePaletteKey.palette.dimSurface
                                              : root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.isChosen ? root.ThemePaletteKey.palette.accent
                                    : root.ThemePaletteKey.palette.dotStroke
        border.width: root.isChosen ? 2 : 1
    }

    Text {
        id: label
        anchors.centerIn: parent
        text: root.day.shortName
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), root.isChosen ? Font.DemiBold : Font.Normal)
        Accessible.ignored: true
    }
}
