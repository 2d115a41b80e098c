import QtQuick
import Vantrel.Theme

// What has been allowed, and what has not.
Rectangle {
    id: root

    required property string text
    required property string mark
    required property string symbol
    required property bool isGiven

    implicitHeight: Math.max(48, words.implicitHeight + 24)
    radius: 12
    color: root.ThemePaletteKey.palette.dimSurface
    border.color: root.ThemePaletteKey.palette.dotStroke
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text + ": " + root.mark

    Text {
        id: words
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: state.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), Font.Medium)
        Accessible.ignored: true
    }

    Row {
        id: state
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Symbol {
            objectName: "statusSymbol"
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            height: 20
            name: root.symbol
            color: root.isGiven ? root.ThemePaletteKey.palette.accent
                                : root.ThemePaletteKey.palette.secondaryText
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.mark
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(Typography.size(0), Font.Medium)
            Accessible.ignored: true
        }
    }
}
