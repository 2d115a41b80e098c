import QtQuick
import Vantrel.Theme

// One of the two places of a stepper that can be pressed.
Item {
    id: root

    required property string symbol

    signal pressed()

    implicitWidth: 48
    implicitHeight: 36

    Rectangle {
        anchors.fill: parent
        anchors.margins: 4
        visible: hover.hovered && root.enabled
        radius: height / 2
        color: tap.pressed ? root.ThemePaletteKey.palette.dotStroke
                           : root.ThemePaletteKey.palette.dimSurface
    }

    Symbol {
        anchors.centerIn: parent
        width: 16
        height: 16
        opacity: root.enabled ? 1 : 0.35
        name: root.symbol
        color: root.ThemePaletteKey.palette.primaryText
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.pressed()
    }
}
