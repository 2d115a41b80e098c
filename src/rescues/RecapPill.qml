import QtQuick
import Vantrel.Theme

// One of the week's figures.
Rectangle {
    id: root

    required property string modelData

    implicitWidth: label.implicitWidth + 24
    implicitHeight: label.implicitHeight + 10
    radius: height / 2
    color: root.ThemePaletteKey.palette.dimSurface
    border.color: root.ThemePaletteKey.palette.dotStroke

    Text {
        id: label
        anchors.centerIn: parent
        text: root.modelData
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), Font.Medium)
    }
}
