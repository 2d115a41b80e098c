import QtQuick
import Vantrel.Theme

// A sentence with a symbol before it.
Item {
    id: root

    required property string symbol
    required property string text
    property color tint: root.ThemePaletteKey.palette.accent
    property color ink: root.ThemePaletteKey.palette.primaryText
    property int weight: Font.Normal

    implicitHeight: Math.max(20, words.implicitHeight)

    Symbol {
        id: picture
        anchors.left: parent.left
        y: Math.round((words.font.pixelSize * 1.35 - height) / 2)
        width: 20
        height: 20
        name: root.symbol
        color: root.tint
    }

    PageText {
        id: words
        anchors.left: picture.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        text: root.text
        color: root.ink
        font: Typography.reading(Typography.size(0), root.weight)
    }
}
