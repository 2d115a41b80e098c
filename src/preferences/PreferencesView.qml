import QtQuick
import QtQuick.Window
import Vantrel.Preferences
import Vantrel.Theme

// All settings: the pages' names at the side, one page beside them.
BrandedSurface {
    id: root

    required property PreferencesModel viewModel

    readonly property bool isAsking: root.viewModel.about.showingResetConfirm

    implicitWidth: 880
    implicitHeight: 600
    ThemePaletteKey.palette: root.viewModel.themePalette
    LayoutMirroring.enabled: root.viewModel.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Pane
    Accessible.name: "Vantrel"
    Keys.onEscapePressed: root.leave()

    PreferencesSidebar {
        id: sidebar
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        enabled: !root.isAsking
        focus: true
        viewModel: root.viewModel
    }

    PreferencesPage {
        objectName: "page"
        anchors.left: sidebar.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        enabled: !root.isAsking
        viewModel: root.viewModel
    }

    ResetConfirmation {
        objectName: "confirmation"
        anchors.fill: parent
        visible: root.isAsking
        viewModel: root.viewModel.about
    }

    Shortcut {
        sequences: ["Ctrl+Tab", "Ctrl+PgDown"]
        enabled: !root.isAsking
        onActivated: root.turn(1)
    }

    Shortcut {
        sequences: ["Ctrl+Shift+Tab", "Ctrl+PgUp"]
        enabled: !root.isAsking
        onActivated: root.turn(-1)
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.Window.window.close()
    }

    function turn(by: int) {
        const count = root.viewModel.tabs.length;
        root.viewModel.selectIndex((root.viewModel.selection + by + count) % count);
    }

    function leave() {
        if (root.isAsking)
            root.viewModel.about.showingResetConfirm = false;
        else
            root.Window.window.close();
    }
}
