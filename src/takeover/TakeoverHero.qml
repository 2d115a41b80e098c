import QtQuick
import Vantrel.Theme

// The paw in its circle; with the badge once the user has joined.
Item {
    id: root

    required property real size
    property bool isBadged: false
    property alias pawOpacity: paw.opacity

    implicitWidth: root.size
    implicitHeight: root.size
    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        radius: root.size / 2
        color: root.ThemePaletteKey.palette.dimSurface
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: 2
        antialiasing: true
    }

    Symbol {
        id: paw
        anchors.centerIn: parent
        // The paw fills 80 of the symbol's 96 units; it is to be about three fifths of the circle.
        width: Math.round(0.6 * root.size * 96 / 80)
        height: paw.width
        name: "pawprint.fill"
        color: root.ThemePaletteKey.palette.accent
    }

    Rectangle {
        id: badge
        visible: root.isBadged
        x: Math.round(0.854 * root.size - badge.width / 2)
        y: badge.x
        width: Math.round(0.275 * root.size)
        height: badge.width
        radius: badge.width / 2
        color: root.ThemePaletteKey.palette.surfaceBackground

        Symbol {
            anchors.centerIn: parent
            // The disc fills 20 of the symbol's 24 units.
            width: Math.round(0.225 * root.size * 1.2)
            height: width
            name: "checkmark.circle.fill"
            color: root.ThemePaletteKey.palette.accent
        }
    }
}
