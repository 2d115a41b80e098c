import QtQuick
import QtQuick.Window
import Vantrel.Theme

// Content that may be longer than its place. What gets the keyboard comes into view.
FocusScope {
    id: root

    default property alias content: column.data
    property alias contentY: flickable.contentY

    /// How far it scrolls.
    readonly property real reach: Math.max(0, flickable.contentHeight - flickable.height)
    readonly property Item focused: root.Window.activeFocusItem

    onFocusedChanged: root.reveal(root.focused)
    // What no control has a use for.
    Keys.onPressed: event => {
        const page = 0.85 * flickable.height;
        switch (event.key) {
        case Qt.Key_PageUp:
            event.accepted = root.scrollBy(-page);
            break;
        case Qt.Key_PageDown:
            event.accepted = root.scrollBy(page);
            break;
        case Qt.Key_Up:
            event.accepted = root.scrollBy(-48);
            break;
        case Qt.Key_Down:
            event.accepted = root.scrollBy(48);
            break;
        }
    }

    Flickable {
        id: flickable
        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: column.height + 48
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: column
            x: Math.round((parent.width - width) / 2)
            y: 24
            width: Math.min(flickable.width - 64, Math.round(46 * Typography.size(0)))
        }
    }

    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 3
        visible: flickable.visibleArea.heightRatio < 1
        y: flickable.visibleArea.yPosition * flickable.height
        width: 4
        height: Math.max(24, flickable.visibleArea.heightRatio * flickable.height)
        radius: 2
        opacity: flickable.moving ? 0.45 : 0.18
        color: root.ThemePaletteKey.palette.primaryText
    }

    /// Whether there was anywhere to go.
    function scrollBy(distance: real): bool {
        const before = flickable.contentY;
        flickable.contentY = Math.max(0, Math.min(root.reach, before + distance));
        return flickable.contentY !== before;
    }

    function reveal(item: Item) {
        let ancestor = item;
        while (ancestor !== null && ancestor !== column)
            ancestor = ancestor.parent;
        if (ancestor === null)
            return;
        const top = item.mapToItem(flickable.contentItem, 0, 0).y - 16;
        const bottom = top + item.height + 32;
        if (top < flickable.contentY)
            flickable.contentY = Math.max(0, top);
        else if (bottom > flickable.contentY + flickable.height)
            flickable.contentY = Math.min(root.reach, bottom - flickable.height);
    }
}
