import QtQuick
import Vantrel.Theme

// One of a theme's colours.
Rectangle {
    id: root

    width: 12
    height: 12
    radius: 6
    border.color: root.ThemePaletteKey.palette.dotStroke
}
