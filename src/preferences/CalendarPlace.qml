import QtQuick
import Vantrel.Theme

// One way by which calendars come.
Item {
    id: root

    required property string symbol
    required property string title
    required property string text

    implicitHeight: texts.implicitHeight

    Symbol {
        id: icon
        anchors.left: parent.left
        anchors.top: parent.top
        width: 22
        height: 22
        name: root.symbol
        color: root.ThemePaletteKey.palette.accent
    }

    Column {
        id: texts
        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        spacing: 2

        CardTitle {
            width: parent.width
            text: root.title
        }

        Explanation {
            width: parent.width
            text: root.text
        }
    }
}
