import QtQuick
import Vantrel.Theme

// A few words in a pill: a value, a mark.
Rectangle {
    id: root

    required property string text

    implicitWidth: Math.ceil(label.implicitWidth) + 20
    implicitHeight: Math.ceil(label.implicitHeight) + 6
    radius: height / 2
    color: root.ThemePaletteKey.palette.dimSurface
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Text {
        id: label
        anchors.centerIn: parent
        text: root.text
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(0.94 * Typography.size(0), Font.Medium)
        Accessible.ignored: true
    }
}
