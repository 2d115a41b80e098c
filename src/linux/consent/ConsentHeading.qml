import QtQuick
import Vantrel.Theme

// Who asks, for what, and what becomes of it.
Item {
    id: root

    readonly property real unit: Typography.size(0)

    // Known at once, unlike that of a column: the window takes its size from it.
    implicitHeight: Math.max(paw.height, title.implicitHeight + 8 + explanation.implicitHeight)

    Rectangle {
        id: paw
        width: Math.round(4 * root.unit)
        height: width
        radius: width / 2
        color: root.ThemePaletteKey.palette.dimSurface
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: 1

        Symbol {
            anchors.centerIn: parent
            width: Math.round(0.7 * paw.width)
            height: width
            name: "pawprint.fill"
            color: root.ThemePaletteKey.palette.accent
        }
    }

    Text {
        id: title
        objectName: "title"
        anchors.left: paw.right
        anchors.leftMargin: 20
        anchors.right: parent.right
        text: "May Vantrel read your calendars?"
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(2), Font.Bold)
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Text {
        id: explanation
        objectName: "explanation"
        anchors.top: title.bottom
        anchors.topMargin: 8
        anchors.left: title.left
        anchors.right: title.right
        text: "It looks for your meetings, so that it can tell you before each one begins. "
              + "Everything stays on this machine: nothing is sent anywhere, and nothing in your "
              + "calendars is changed."
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        lineHeight: 1.25
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(root.unit, Font.Normal)
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
