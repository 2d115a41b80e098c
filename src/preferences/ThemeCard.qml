import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// A theme to pick, with its colours. Of these only the selected one is in the order of Tab.
Pressable {
    id: root

    required property themeOffer offer
    required property bool isSelected

    implicitHeight: Math.max(76, texts.implicitHeight + 28)
    ringRadius: 12
    activeFocusOnTab: root.isSelected || root.activeFocus
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.offer.name
    Accessible.description: root.offer.description
    Accessible.checkable: true
    Accessible.checked: root.isSelected
    Accessible.onToggleAction: root.clicked()

    Rectangle {
        anchors.fill: parent
        radius: 12
        // The description would be too weak on the dim surface.
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.isSelected || root.isHovered ? root.ThemePaletteKey.palette.accent
                                                        : root.ThemePaletteKey.palette.dotStroke
        border.width: root.isSelected ? 2 : 1
    }

    Rectangle {
        id: swatch
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 48
        height: 48
        radius: 24
        color: root.offer.themePalette.surfaceBackground
        border.color: root.offer.themePalette.dotStroke
        border.width: 2

        Symbol {
            anchors.centerIn: parent
            width: 28
            height: 28
            name: "pawprint.fill"
            color: root.offer.themePalette.accent
        }
    }

    Column {
        id: texts
        anchors.left: swatch.right
        anchors.leftMargin: 12
        anchors.right: check.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: root.offer.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(Typography.size(0), Font.DemiBold)
            Accessible.ignored: true
        }

        Explanation {
            width: parent.width
            text: root.offer.description
            Accessible.ignored: true
        }
    }

    Symbol {
        id: check
        objectName: "check"
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isSelected
        width: 20
        height: 20
        name: "checkmark.circle.fill"
        color: root.ThemePaletteKey.palette.accent
    }
}
