import QtQuick
import Vantrel.Onboarding
import Vantrel.Theme

// One of the themes: its colours, its name, and whether it is the chosen one.
Pressable {
    id: root

    required property themeOffer modelData
    required property int index
    required property bool isSelected

    signal chosen()
    signal moved(int step)

    implicitHeight: Math.max(56, texts.implicitHeight + 16)
    ringRadius: 12
    // One stop for the keyboard; the arrows go from row to row.
    activeFocusOnTab: root.isSelected || root.activeFocus
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.modelData.name
    Accessible.description: root.modelData.description
    Accessible.checkable: true
    Accessible.checked: root.isSelected
    onClicked: root.chosen()
    Keys.onUpPressed: root.moved(-1)
    Keys.onDownPressed: root.moved(1)

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: root.isHovered ? root.ThemePaletteKey.palette.dimSurface
                              : root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.isSelected ? root.ThemePaletteKey.palette.accent
                                      : root.ThemePaletteKey.palette.dotStroke
        border.width: root.isSelected ? 2 : 1
    }

    Rectangle {
        id: swatch
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 56
        height: 36
        radius: 8
        color: root.modelData.themePalette.surfaceBackground
        border.color: root.modelData.themePalette.accent

        Row {
            anchors.centerIn: parent
            spacing: 4

            ThemeDot {
                color: root.modelData.themePalette.accent
                border.color: root.modelData.themePalette.dotStroke
            }

            ThemeDot {
                color: root.modelData.themePalette.primaryText
                border.color: root.modelData.themePalette.dotStroke
            }

            ThemeDot {
                color: root.modelData.themePalette.dimSurface
                border.color: root.modelData.themePalette.dotStroke
            }
        }
    }

    Column {
        id: texts
        anchors.left: swatch.right
        anchors.leftMargin: 16
        anchors.right: check.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: root.modelData.name
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(Typography.size(0), Font.DemiBold)
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            text: root.modelData.description
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            // The secondary colour is too weak on the dim surface.
            color: root.isHovered ? root.ThemePaletteKey.palette.primaryText
                                  : root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(0.94 * Typography.size(0), Font.Normal)
            Accessible.ignored: true
        }
    }

    Symbol {
        id: check
        objectName: "check"
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        width: 24
        height: 24
        visible: root.isSelected
        name: "checkmark.circle.fill"
        color: root.ThemePaletteKey.palette.accent
    }
}
