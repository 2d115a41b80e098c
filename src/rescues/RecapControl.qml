import QtQuick
import Vantrel.Theme

// A quiet button for whoever works on the view.
Text {
    id: root

    signal chosen()

    padding: 8
    textFormat: Text.PlainText
    color: root.ThemePaletteKey.palette.secondaryText
    font: Typography.reading(Typography.size(0), Font.Medium)
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: root.chosen()
    Keys.onSpacePressed: root.chosen()
    Keys.onReturnPressed: root.chosen()

    TapHandler { onTapped: root.chosen() }
}
