import QtQuick
import Vantrel.Menubar
import Vantrel.Theme

// The popover with the upcoming meetings.
FocusScope {
    id: root

    required property PopoverModel viewModel
    property real cornerRadius: 16
    property bool reducedMotion: false

    // From the moment at which the window is shown to the one at which everything is in its place.
    property real arrival: 1

    readonly property real listTop: header.height + divider.height
    readonly property real greatestHeight: 560
    // Squeezed by a screen that is lower than what there is to show.
    readonly property bool isSqueezed: root.height > 0 && root.height < root.implicitHeight

    implicitWidth: 360
    implicitHeight: root.viewModel.isEmpty
                    ? 220
                    : Math.min(Math.max(220, Math.ceil(root.listTop + list.contentHeight)),
                               root.greatestHeight)
    focus: true
    ThemePaletteKey.palette: root.viewModel.themePalette
    LayoutMirroring.enabled: root.viewModel.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Dialog
    Accessible.name: "Vantrel"
    Window.onVisibilityChanged: {
        if (root.Window.visibility !== Window.Hidden && !root.reducedMotion)
            opening.restart();
    }

    // The first frame can be read already.
    NumberAnimation {
        id: opening
        objectName: "opening"
        target: root
        property: "arrival"
        from: 0.3
        to: 1
        duration: 160
        easing.type: Easing.OutCubic
    }

    Rectangle {
        anchors.fill: parent
        radius: root.cornerRadius
        color: root.ThemePaletteKey.palette.surfaceBackground
    }

    // First, as it is read; on top, for the list reaches further than the window may.
    PopoverHeader {
        id: header
        z: 1
        width: root.width
        viewModel: root.viewModel
    }

    // As high as it may become: a list knows its length for sure only by rows that exist.
    EventList {
        id: list
        y: root.listTop
        width: root.width
        height: (root.isSqueezed ? root.height : root.greatestHeight) - root.listTop
        visible: !root.viewModel.isEmpty
        opacity: root.arrival
        transform: Translate { y: 8 * (1 - root.arrival) }
        focus: true
        viewModel: root.viewModel
        reducedMotion: root.reducedMotion
    }

    EmptyDays {
        y: root.listTop
        width: root.width
        height: root.height - root.listTop
        visible: root.viewModel.isEmpty
        opacity: root.arrival
        transform: Translate { y: 8 * (1 - root.arrival) }
        line: root.viewModel.emptyLine
    }

    Rectangle {
        id: divider
        y: header.height
        width: root.width
        height: 1
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Rectangle {
        anchors.fill: parent
        radius: root.cornerRadius
        color: "transparent"
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: 1
    }
}
