import QtQuick
import Vantrel.Theme

// What a step has to say.
Text {
    id: root

    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    lineHeight: 1.2
    color: root.ThemePaletteKey.palette.secondaryText
    font: Typography.reading(Typography.size(0), Font.Normal)
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
