import QtQuick
import Vantrel.Theme

// What went wrong.
Item {
    id: root

    required property string text

    implicitHeight: Math.max(sign.height, label.implicitHeight)

    Symbol {
        id: sign
        anchors.left: parent.left
        width: 18
        height: 18
        name: "exclamationmark.triangle.fill"
        color: root.ThemePaletteKey.palette.accent
    }

    Text {
        id: label
        anchors.left: sign.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        text: root.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(0.94 * Typography.size(0), Font.Medium)
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
}
