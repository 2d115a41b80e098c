import QtQuick
import Vantrel.Theme

// One of the things worth knowing ahead.
Item {
    id: root

    required property string symbol
    required property string text

    implicitHeight: Math.max(36, words.implicitHeight)

    Rectangle {
        id: disc
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 36
        height: 36
        radius: 18
        color: root.ThemePaletteKey.palette.dimSurface

        Symbol {
            anchors.centerIn: parent
            width: 20
            height: 20
            name: root.symbol
            color: root.ThemePaletteKey.palette.accent
        }
    }

    PageText {
        id: words
        anchors.left: disc.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.ThemePaletteKey.palette.primaryText
    }
}
