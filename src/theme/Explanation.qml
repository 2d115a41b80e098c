import QtQuick
import Vantrel.Theme

// A sentence or two about a setting.
Text {
    id: root

    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignLeft
    lineHeight: 1.1
    color: root.ThemePaletteKey.palette.secondaryText
    font: Typography.reading(0.94 * Typography.size(0), Font.Normal)
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
