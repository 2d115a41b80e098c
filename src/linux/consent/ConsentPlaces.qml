import QtQuick
import Vantrel.Consent
import Vantrel.Theme

// The places that would be read, as many of them as there is room for; the others by scrolling.
Rectangle {
    id: root

    required property PlaceList places

    readonly property real unit: Typography.size(0)
    readonly property real rowHeight: Math.round(3.9 * root.unit)
    readonly property bool isScrollable: list.contentHeight > list.height + 1

    // Half a row tells that there are more.
    implicitHeight: Math.min(list.count, 5.5) * root.rowHeight + 2 * list.anchors.margins
    radius: 12
    color: root.ThemePaletteKey.palette.dimSurface
    activeFocusOnTab: root.isScrollable
    Accessible.role: Accessible.List
    Accessible.name: "Places with calendars"
    Keys.onPressed: event => {
        const page = list.height - root.rowHeight;
        const step = {
            [Qt.Key_Up]: -root.rowHeight,
            [Qt.Key_Down]: root.rowHeight,
            [Qt.Key_PageUp]: -page,
            [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -list.contentHeight,
            [Qt.Key_End]: list.contentHeight
        }[event.key];
        event.accepted = step !== undefined;
        if (event.accepted)
            root.scroll(step);
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: root.activeFocus ? -4 : 0
        radius: root.activeFocus ? 16 : 12
        color: "transparent"
        border.color: root.activeFocus ? root.ThemePaletteKey.palette.accent
                                       : root.ThemePaletteKey.palette.dotStroke
        border.width: root.activeFocus ? 2 : 1
    }

    ListView {
        id: list
        objectName: "places"
        anchors.fill: parent
        anchors.margins: 4
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: root.isScrollable
        model: root.places

        delegate: ConsentPlace {}
    }

    Rectangle {
        visible: root.isScrollable
        anchors.right: parent.right
        anchors.rightMargin: 4
        y: 8 + list.visibleArea.yPosition * (root.height - 16)
        width: 4
        height: list.visibleArea.heightRatio * (root.height - 16)
        radius: 2
        opacity: 0.35
        color: root.ThemePaletteKey.palette.primaryText
    }

    function scroll(step: real) {
        const end = Math.max(0, list.contentHeight - list.height);
        list.contentY = list.originY + Math.min(Math.max(list.contentY - list.originY + step, 0), end);
    }
}
