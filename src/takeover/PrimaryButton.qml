import QtQuick
import Vantrel.Theme

// The one thing that a takeover asks for. It is also the only one that takes the focus: Space and
// Return join wherever the focus is, so on any other button the ring would promise something else.
Item {
    id: root

    required property string text
    required property real pixelSize

    signal clicked()

    implicitWidth: Math.ceil(label.implicitWidth) + 2 * root.height
    focus: true
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.focusable: true
    Accessible.onPressAction: root.clicked()

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
        radius: height / 2
        color: root.ThemePaletteKey.palette.accent
    }

    Rectangle {
        anchors.fill: parent
        visible: hover.hovered
        opacity: tap.pressed ? 0.24 : 0.12
        radius: height / 2
        // Away from the label's own colour.
        color: root.ThemePaletteKey.palette.primaryText
    }

    Text {
        id: label
        anchors.centerIn: parent
        text: root.text
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.accentForeground
        font: Typography.rounded(root.pixelSize, Font.Bold)
        Accessible.ignored: true
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }
}
