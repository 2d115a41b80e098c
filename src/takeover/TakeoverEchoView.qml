import QtQuick
import Vantrel.Theme

// What a takeover shows on every other monitor.
Rectangle {
    id: root

    required property string title
    required property themePalette themePalette

    ThemePaletteKey.palette: root.themePalette
    color: root.themePalette.surfaceBackground
}
