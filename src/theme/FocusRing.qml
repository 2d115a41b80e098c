import QtQuick
import Vantrel.Theme

// The ring around what has the keyboard: two pixels, with two of air.
Rectangle {
    id: root

    required property Item target

    anchors.fill: parent
    anchors.margins: -4
    visible: root.target.activeFocus
    color: "transparent"
    border.color: root.ThemePaletteKey.palette.accent
    border.width: 2
}
