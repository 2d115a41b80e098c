import QtQuick
import Vantrel.Theme

// The mascot in a ring.
Rectangle {
    id: root

    required property string asset
    required property real size
    property color strokeColor: root.ThemePaletteKey.palette.dotStroke

    implicitWidth: root.size
    implicitHeight: root.size
    radius: root.size / 2
    color: root.ThemePaletteKey.palette.dimSurface
    border.color: root.strokeColor
    border.width: 2
    antialiasing: true
    Accessible.ignored: true

    Tobble {
        anchors.centerIn: parent
        width: Math.round(0.78 * root.size)
        height: width
        pose: root.asset
    }
}
