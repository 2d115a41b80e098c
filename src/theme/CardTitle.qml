import QtQuick
import Vantrel.Theme

// What a card, or a part of it, is about.
Text {
    id: root

    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    color: root.ThemePaletteKey.palette.primaryText
    font: Typography.reading(Typography.size(0), Font.DemiBold)
    Accessible.role: Accessible.Heading
    Accessible.name: root.text
}
