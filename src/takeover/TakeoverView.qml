import QtQuick
import Vantrel.Theme

// The whole of a takeover, on the monitor with the pointer.
Rectangle {
    id: root

    required property TakeoverViewModel viewModel
    // `palette` is taken: every Item has one of the platform's by that name.
    required property themePalette themePalette

    ThemePaletteKey.palette: root.themePalette
    color: root.themePalette.surfaceBackground
}
