import QtQuick
import Vantrel.Theme

// One of the two answers; the primary one is filled.
Item {
    id: root

    required property string text
    property string keyLabel: ""
    property bool isPrimary: false

    readonly property real pixelSize: Typography.size(0)
    readonly property color ink: root.isPrimary ? root.ThemePaletteKey.palette.accentForeground
                                                : root.ThemePaletteKey.palette.primaryText

    signal chosen()

    implicitWidth: Math.ceil(row.implicitWidth + (root.isPrimary ? 2.2 : 1.4) * root.implicitHeight * 0.5)
    implicitHeight: Math.max(40, Math.round(2.6 * root.pixelSize))
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: true
    Accessible.onPressAction: root.chosen()
    Keys.onSpacePressed: event => root.take(event)
    Keys.onReturnPressed: event => root.take(event)
    Keys.onEnterPressed: event => root.take(event)

    Rectangle {
        anchors.fill: parent
        anchors.margins: -4
        visible: root.activeFocus
        radius: height / 2
        color: "transparent"
        border.color: root.ThemePaletteKey.palette.accent
        border.width: 2
    }

    Rectangle {
        anchors.fill: parent
        visible: root.isPrimary
        radius: height / 2
        color: root.ThemePaletteKey.palette.accent
    }

    Rectangle {
        anchors.fill: parent
        visible: hover.hovered
        opacity: root.isPrimary ? (tap.pressed ? 0.24 : 0.12) : (tap.pressed ? 1 : 0.6)
        radius: height / 2
        // Where the label is on the accent, away from its own colour.
        color: root.isPrimary ? root.ThemePaletteKey.palette.primaryText
                              : root.ThemePaletteKey.palette.dimSurface
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Math.round(0.6 * root.pixelSize)

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            textFormat: Text.PlainText
            color: root.ink
            font: root.isPrimary ? Typography.rounded(1.15 * root.pixelSize, Font.Bold)
                                 : Typography.reading(root.pixelSize, Font.Medium)
            Accessible.ignored: true
        }

        KeyCap {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.keyLabel.length > 0
            label: root.keyLabel
            pixelSize: Math.round(0.8 * root.pixelSize)
        }
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.chosen()
    }

    // A key that is still held down from elsewhere is no answer.
    function take(event: KeyEvent) {
        event.accepted = true;
        if (!event.isAutoRepeat)
            root.chosen();
    }
}
