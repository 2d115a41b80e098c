import QtQuick
import Vantrel.Theme

// One of the options of a choice. Of these only the chosen one is in the order of Tab.
Pressable {
    id: root

    required property int index
    required property string modelData
    required property bool isChosen

    implicitWidth: Math.ceil(label.implicitWidth) + 32
    implicitHeight: 36
    activeFocusOnTab: root.isChosen || root.activeFocus
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.modelData
    Accessible.checkable: true
    Accessible.checked: root.isChosen
    Accessible.onToggleAction: root.clicked()

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.isChosen ? root.ThemePaletteKey.palette.surfaceBackground : "transparent"
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: root.isChosen ? 1 : 0
    }

    Text {
        id: label
        anchors.centerIn: parent
        text: root.modelData
        textFormat: Text.PlainText
        // The secondary colour is too weak on the dim surface.
        color: root.ThemePaletteKey.palette.primaryText
        opacity: root.isChosen || root.isHovered ? 1 : 0.85
        font: Typography.reading(Typography.size(0), root.isChosen ? Font.DemiBold : Font.Normal)
        Accessible.ignored: true
    }
}
