import QtQuick
import Vantrel.Theme

// The pill that joins a video call.
Item {
    id: root

    required property string meeting

    signal clicked()

    implicitWidth: 52
    implicitHeight: 36
    Accessible.role: Accessible.Button
    Accessible.name: "Join " + root.meeting
    Accessible.onPressAction: root.clicked()

    Rectangle {
        id: pill
        anchors.centerIn: parent
        width: 44
        height: 26
        radius: 13
        color: root.ThemePaletteKey.palette.accent
    }

    Rectangle {
        anchors.fill: pill
        visible: hover.hovered
        opacity: tap.pressed ? 0.24 : 0.12
        radius: pill.radius
        // Away from the symbol's own colour.
        color: root.ThemePaletteKey.palette.primaryText
    }

    Symbol {
        anchors.centerIn: parent
        width: 18
        height: 18
        name: "video.fill"
        color: root.ThemePaletteKey.palette.accentForeground
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

    Hint {
        target: root
        text: "Join"
        isWanted: hover.hovered && !tap.pressed
    }
}
