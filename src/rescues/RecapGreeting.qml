import QtQuick
import Vantrel.Theme

// What stands there before the first rescue.
Column {
    id: root

    spacing: 12

    Text {
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Tobble is still getting to know you."
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(2), Font.Bold)
    }

    Text {
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Rescues count up here as Tobble fetches you to meetings."
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.secondaryText
        font: Typography.reading(Typography.size(0), Font.Normal)
    }
}
