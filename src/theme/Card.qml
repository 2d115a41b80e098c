import QtQuick
import Vantrel.Theme

// The ground of a card. What stands on it comes in a column, as wide as the card lets it be.
Rectangle {
    id: root

    default property alias parts: column.data

    implicitHeight: column.implicitHeight + 32
    radius: 12
    color: root.ThemePaletteKey.palette.surfaceBackground
    border.color: root.ThemePaletteKey.palette.dotStroke
    Accessible.role: Accessible.Grouping

    Column {
        id: column
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 16
        spacing: 12
    }
}
