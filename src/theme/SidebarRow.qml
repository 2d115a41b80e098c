import QtQuick
import Vantrel.Theme

// The entry of a page in the list beside it. Whoever shows the list moves the focus along it.
Pressable {
    id: root

    required property sidebarTab tab
    required property bool isSelected

    implicitHeight: Math.max(36, Math.round(2.5 * Typography.size(0)))
    ringRadius: 8
    activeFocusOnTab: root.isSelected || root.activeFocus
    Accessible.role: Accessible.PageTab
    Accessible.name: root.tab.title
    Accessible.selectable: true
    Accessible.selected: root.isSelected

    Rectangle {
        anchors.fill: parent
        visible: root.isSelected || root.isHovered
        radius: 8
        opacity: root.isSelected ? 1 : 0.6
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: root.isSelected ? 1 : 0
    }

    Symbol {
        id: icon
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 18
        height: 18
        name: root.tab.symbol
        color: root.isSelected ? root.ThemePaletteKey.palette.accent
                               : root.ThemePaletteKey.palette.primaryText
    }

    Text {
        anchors.left: icon.right
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.tab.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), root.isSelected ? Font.DemiBold : Font.Normal)
        Accessible.ignored: true
    }
}
