import QtQuick
import Vantrel.Theme

// The ground of a window, with its content.
FocusScope {
    id: root

    default property alias content: ground.data

    Rectangle {
        id: ground
        anchors.fill: parent
        color: root.ThemePaletteKey.palette.surfaceBackground
    }
}
