import QtQuick
import Vantrel.Theme

// Some lines on the dim surface, where the secondary colour is too weak; with a sign before them in
// a list.
Item {
    id: root

    required property string text
    property string sign: ""

    implicitHeight: lines.implicitHeight

    Text {
        anchors.left: parent.left
        visible: root.sign.length > 0
        text: root.sign
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: lines.font
        Accessible.ignored: true
    }

    Text {
        id: lines
        anchors.left: parent.left
        anchors.leftMargin: root.sign.length > 0 ? Math.round(1.5 * Typography.size(0)) : 0
        anchors.right: parent.right
        text: root.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        lineHeight: 1.1
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(0.94 * Typography.size(0), Font.Normal)
        Accessible.role: Accessible.StaticText
        Accessible.name: root.text
    }
}
