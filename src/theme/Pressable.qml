import QtQuick
import Vantrel.Theme

// What all buttons have in common: the pointer, Space and Return, a screen reader, the ring.
Item {
    id: root

    property real ringRadius: height / 2

    readonly property bool isHovered: hover.hovered
    readonly property bool isDown: tap.pressed

    signal clicked()

    implicitHeight: 36
    activeFocusOnTab: true
    opacity: root.enabled ? 1 : 0.45
    Accessible.role: Accessible.Button
    Accessible.focusable: true
    Accessible.onPressAction: root.clicked()
    Keys.onSpacePressed: event => root.take(event)
    Keys.onReturnPressed: event => root.take(event)
    Keys.onEnterPressed: event => root.take(event)

    FocusRing {
        target: root
        radius: root.ringRadius + 4
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

    // A key that is still held down from elsewhere is no press.
    function take(event: KeyEvent) {
        event.accepted = true;
        if (!event.isAutoRepeat)
            root.clicked();
    }
}
