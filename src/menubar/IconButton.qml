import QtQuick
import Vantrel.Theme

// A button that is a symbol; what it is called is read out and shown as a hint.
Item {
    id: root

    required property string symbol
    required property string title
    property string shortcut: ""

    readonly property point middle: Qt.point(root.width / 2, root.height / 2)

    // At a place within the button; by anything but the pointer, its middle.
    signal clicked(place: point)

    implicitWidth: 36
    implicitHeight: 36
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: root.title
    Accessible.focusable: true
    Accessible.onPressAction: root.clicked(root.middle)
    Keys.onSpacePressed: event => root.take(event)
    Keys.onReturnPressed: event => root.take(event)
    Keys.onEnterPressed: event => root.take(event)

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        visible: hover.hovered || tap.pressed
        opacity: tap.pressed ? 1 : 0.7
        radius: 8
        color: root.ThemePaletteKey.palette.dimSurface
    }

    Item {
        anchors.fill: parent
        anchors.margins: 6

        FocusRing {
            target: root
            radius: 8
        }
    }

    Symbol {
        anchors.centerIn: parent
        width: 18
        height: 18
        name: root.symbol
        color: root.ThemePaletteKey.palette.primaryText
        opacity: 0.85
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: eventPoint => root.clicked(eventPoint.position)
    }

    Hint {
        target: root
        text: root.shortcut.length > 0 ? `${root.title} (${root.shortcut})` : root.title
        isWanted: hover.hovered && !tap.pressed
    }

    // A key that is still held down from elsewhere is no press.
    function take(event: KeyEvent) {
        event.accepted = true;
        if (!event.isAutoRepeat)
            root.clicked(root.middle);
    }
}
