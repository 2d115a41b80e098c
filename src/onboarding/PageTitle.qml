import QtQuick
import Vantrel.Theme

// What a step is about.
Text {
    id: root

    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    lineHeight: 0.95
    color: root.ThemePaletteKey.palette.primaryText
    font: Typography.rounded(Typography.size(3), Font.Bold)
    Accessible.role: Accessible.Heading
    Accessible.name: root.text
}
