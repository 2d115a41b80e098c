import QtQuick
import Vantrel.Menubar
import Vantrel.Theme

// The popover's top line: whose it is, which meetings are listed, the pause and the menu.
Item {
    id: root

    required property PopoverModel viewModel

    readonly property real roomForTitle: root.width - 14 - paw.width - 8 - (root.viewModel.isPaused
                                             ? pausedPill.width + 6 : 0)
                                         - 8 - modes.width - 8 - pause.width - more.width - 6

    implicitHeight: 48

    Symbol {
        id: paw
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        name: "pawprint.fill"
        color: root.ThemePaletteKey.palette.accent
    }

    Text {
        id: title
        objectName: "title"
        anchors.left: paw.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(title.implicitWidth), Math.max(0, root.roomForTitle))
        text: "Vantrel"
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(1.1 * Typography.size(0), Font.Bold)
        Accessible.role: Accessible.Heading
        Accessible.name: title.text
    }

    Rectangle {
        id: pausedPill
        objectName: "pausedPill"
        anchors.left: title.right
        anchors.leftMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.viewModel.isPaused
        width: Math.ceil(pausedLabel.implicitWidth) + 12
        height: Math.ceil(pausedLabel.implicitHeight) + 4
        radius: height / 2
        color: root.ThemePaletteKey.palette.dotStroke
        Accessible.role: Accessible.StaticText
        Accessible.name: pausedLabel.text

        Text {
            id: pausedLabel
            anchors.centerIn: parent
            text: "paused"
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(Typography.size(-1), Font.Medium)
            Accessible.ignored: true
        }
    }

    Rectangle {
        anchors.fill: modes
        anchors.margins: -2
        anchors.topMargin: 4
        anchors.bottomMargin: 4
        radius: height / 2
        color: root.ThemePaletteKey.palette.dimSurface
    }

    Row {
        id: modes
        anchors.right: pause.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        Accessible.role: Accessible.Grouping
        Accessible.name: "Meetings"

        ModeButton {
            id: today
            objectName: "today"
            text: "today"
            shortcut: "Alt+T"
            isChosen: root.viewModel.mode === PopoverModel.Today
            onChosen: root.viewModel.mode = PopoverModel.Today
        }

        ModeButton {
            id: all
            objectName: "all"
            text: "all"
            shortcut: "Alt+A"
            isChosen: root.viewModel.mode === PopoverModel.All
            onChosen: root.viewModel.mode = PopoverModel.All
        }
    }

    IconButton {
        id: pause
        objectName: "pause"
        anchors.right: more.left
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.viewModel.isPaused ? "play.fill" : "pause.fill"
        title: root.viewModel.isPaused ? "Resume alerts" : "Pause alerts"
        shortcut: "Alt+P"
        onClicked: root.viewModel.togglePaused()
    }

    IconButton {
        id: more
        objectName: "more"
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        symbol: "gearshape.fill"
        title: "More"
        shortcut: "Alt+M"
        Accessible.role: Accessible.ButtonMenu
        onClicked: place => root.openMenu(place)
    }

    Shortcut {
        sequence: today.shortcut
        autoRepeat: false
        onActivated: root.viewModel.mode = PopoverModel.Today
    }

    Shortcut {
        sequence: all.shortcut
        autoRepeat: false
        onActivated: root.viewModel.mode = PopoverModel.All
    }

    Shortcut {
        sequence: pause.shortcut
        autoRepeat: false
        onActivated: root.viewModel.togglePaused()
    }

    Shortcut {
        sequence: more.shortcut
        autoRepeat: false
        onActivated: root.openMenu(more.middle)
    }

    function openMenu(place: point) {
        root.viewModel.openMenu(more.mapToGlobal(place));
    }
}
