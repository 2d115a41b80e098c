import QtQuick
import Vantrel.Preferences

// The page that is selected; it scrolls where it is longer than the window.
ScrollPane {
    id: root

    required property PreferencesModel viewModel

    readonly property list<Component> pages: [calendars, general, takeover, eventFilters, menuBar,
                                              appearance, about]

    Loader {
        width: parent.width
        sourceComponent: root.pages[root.viewModel.selection]
        onLoaded: root.contentY = 0
    }

    // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
    // qmllint disable unqualified
    Component {
        id: calendars
        CalendarsTab { viewModel: root.viewModel.calendars }
    }

    Component {
        id: general
        GeneralTab { viewModel: root.viewModel.general }
    }

    Component {
        id: takeover
        TakeoverTab { viewModel: root.viewModel.takeover }
    }

    Component {
        id: eventFilters
        EventFiltersTab { viewModel: root.viewModel.eventFilters }
    }

    Component {
        id: menuBar
        MenuBarTab { viewModel: root.viewModel.menuBar }
    }

    Component {
        id: appearance
        AppearanceTab { viewModel: root.viewModel.appearance }
    }

    Component {
        id: about
        AboutTab { viewModel: root.viewModel.about }
    }
    // qmllint enable unqualified
}
