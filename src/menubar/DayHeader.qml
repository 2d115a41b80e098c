import QtQuick
import Vantrel.Theme

// The title of a day. It stays at the top while the day's meetings pass beneath.
Rectangle {
    id: root

    required property string section

    implicitHeight: Math.round(label.implicitHeight) + 14
    color: root.ThemePaletteKey.palette.surfaceBackground
    Accessible.role: Accessible.Heading
    Accessible.name: root.section

    Text {
        id: label
        objectName: "dayLabel"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        text: root.section
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(-1), Font.DemiBold)
        Accessible.ignored: true
    }
}
