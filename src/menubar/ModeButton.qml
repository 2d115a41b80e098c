import QtQuick
import Vantrel.Theme

// One half of the switch between today's meetings and all.
Item {
    id: root

    required property string text
    required property bool isChosen
    required property string shortcut

    signal chosen()

    implicitWidth: Math.ceil(label.implicitWidth) + 20
    implicitHeight: 36
    activeFocusOnTab: true
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.isChosen
    Accessible.focusable: true
    Accessible.onPressAction: root.chosen()
    Accessible.onToggleAction: root.chosen()
    Keys.onSpacePressed: root.chosen()
    Keys.onReturnPressed: root.chosen()
    Keys.onEnterPressed: root.chosen()

    Rectangle {
        id: pill
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 24
        radius: 12
        color: root.isChosen ? root.ThemePaletteKey.palette.surfaceBackground : "transparent"
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: root.isChosen ? 1 : 0

        FocusRing {
            target: root
            radius: 16
        }
    }

    Text {
        id: label
        anchors.centerIn: parent
        text: root.text
        textFormat: Text.PlainText
        color: root.isChosen || hover.hovered ? root.ThemePaletteKey.palette.primaryText
                                              : root.ThemePaletteKey.palette.secondaryText
        font: Typography.reading(0.92 * Typography.size(0), root.isChosen ? Font.DemiBold : Font.Normal)
        Accessible.ignored: true
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    Hint {
        target: root
        text: `${root.text} (${root.shortcut})`
        isWanted: hover.hovered
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.chosen()
    }
}
