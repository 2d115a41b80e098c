import QtQuick
import Vantrel.Theme

// A sentence of what there is to know.
Text {
    id: root

    textFormat: Text.PlainText
    wrapMode: Text.WrapAtWordBoundaryOrAnywhere
    horizontalAlignment: Text.AlignLeft
    lineHeight: 1.25
    color: root.ThemePaletteKey.palette.primaryText
    font: Typography.reading(Typography.size(0), Font.Normal)
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
