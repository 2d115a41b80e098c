import QtQuick
import Vantrel.Theme

// One place in the list, divided from the one above it.
Item {
    id: root

    required property int index
    required property string name
    required property string detail

    readonly property real unit: Typography.size(0)

    width: ListView.view.width
    implicitHeight: Math.round(3.9 * root.unit)
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.description: root.detail

    Rectangle {
        visible: root.index > 0
        x: 12
        width: parent.width - 24
        height: 1
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 12
        width: parent.width - 24
        spacing: 2

        Text {
            objectName: "placeName"
            width: parent.width
            text: root.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            maximumLineCount: 1
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(root.unit, Font.Medium)
            Accessible.ignored: true
        }

        Text {
            width: parent.width
            visible: root.detail.length > 0
            text: root.detail
            textFormat: Text.PlainText
            elide: Text.ElideMiddle
            maximumLineCount: 1
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(0.9 * root.unit, Font.Normal)
            Accessible.ignored: true
        }
    }
}
