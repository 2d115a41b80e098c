import QtQuick
import Vantrel.Menubar
import Vantrel.Theme

// The meetings by day; rows exist only where they are seen.
FocusScope {
    id: root

    required property PopoverModel viewModel
    required property bool reducedMotion
    readonly property real contentHeight: list.contentHeight + list.topMargin + list.bottomMargin

    activeFocusOnTab: !root.viewModel.isEmpty

    ListView {
        id: list
        objectName: "events"
        anchors.fill: parent
        focus: true
        clip: true
        topMargin: 2
        bottomMargin: 10
        boundsBehavior: Flickable.StopAtBounds
        currentIndex: -1
        highlightMoveDuration: root.reducedMotion ? 0 : 120
        // A row that is gone to comes out from beneath the day that stays at the top.
        highlightRangeMode: ListView.ApplyRange
        preferredHighlightBegin: dayMeasure.implicitHeight
        // A height that the list itself gets only once it is shown is not followed here.
        preferredHighlightEnd: root.height
        keyNavigationEnabled: false
        model: root.viewModel.rows
        section.property: "section"
        section.labelPositioning: ViewSection.InlineLabels | ViewSection.CurrentLabelAtStart
        Accessible.role: Accessible.List
        Accessible.name: "Upcoming meetings"
        Accessible.focusable: true
        Keys.onDownPressed: list.currentIndex = Math.min(list.currentIndex + 1, list.count - 1)
        Keys.onUpPressed: root.goUp()
        Keys.onReturnPressed: event => root.join(event)
        Keys.onEnterPressed: event => root.join(event)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
            if (event.key === Qt.Key_Home)
                root.goTo(0);
            if (event.key === Qt.Key_End)
                root.goTo(list.count - 1);
        }
        // One that was left by Tab has a ring to come back to.
        onActiveFocusChanged: {
            if (!list.activeFocus && list.Window.active)
                list.currentIndex = Math.max(0, list.currentIndex);
        }
        Window.onVisibilityChanged: list.currentIndex = -1

        section.delegate: DayHeader {
            width: ListView.view.width
        }

        // An inline component reaches the ids of its file, of which the linter is not sure.
        // qmllint disable unqualified
        delegate: EventRow {
            objectName: "event"
            width: ListView.view.width
            isRinged: ListView.isCurrentItem && list.activeFocus
            focus: ListView.isCurrentItem
            onJoined: root.viewModel.join(index)
            onPicked: {
                list.forceActiveFocus();
                list.currentIndex = index;
            }
        }
        // qmllint enable unqualified
    }

    DayHeader {
        id: dayMeasure
        visible: false
        section: ""
        Accessible.ignored: true
    }

    Rectangle {
        objectName: "scrollBar"
        anchors.right: parent.right
        anchors.rightMargin: 3
        visible: list.visibleArea.heightRatio < 1
        y: list.y + list.visibleArea.yPosition * list.height
        width: 3
        height: Math.max(24, list.visibleArea.heightRatio * list.height)
        radius: 1.5
        opacity: list.moving ? 0.45 : 0.18
        color: root.ThemePaletteKey.palette.primaryText

        Behavior on opacity {
            enabled: !root.reducedMotion
            NumberAnimation { duration: 180 }
        }
    }

    function goTo(row: int) {
        list.currentIndex = row;
        list.positionViewAtIndex(row, row === 0 ? ListView.Beginning : ListView.Contain);
    }

    // With the first row its day comes into view as well.
    function goUp() {
        if (list.currentIndex > 1)
            list.currentIndex -= 1;
        else
            root.goTo(0);
    }

    function join(event: KeyEvent) {
        event.accepted = true;
        if (!event.isAutoRepeat && list.activeFocus)
            root.viewModel.join(list.currentIndex);
    }
}
