import QtQuick
import Vantrel.Theme

// What a page is about, with the mascot beside it where he has something to say.
Item {
    id: root

    required property string title
    required property string subtitle
    property string tobbleAsset: ""

    // With air beneath; the same with the mascot and without, so that the title stays in its place.
    implicitHeight: Math.max(texts.implicitHeight, mascot.size) + 4

    Column {
        id: texts
        anchors.left: parent.left
        anchors.right: mascot.visible ? mascot.left : parent.right
        anchors.rightMargin: mascot.visible ? 16 : 0
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Text {
            width: parent.width
            text: root.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.rounded(Typography.size(3), Font.Bold)
            Accessible.role: Accessible.Heading
            Accessible.name: root.title
        }

        Text {
            width: parent.width
            text: root.subtitle
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(Typography.size(0), Font.Normal)
            Accessible.role: Accessible.StaticText
            Accessible.name: root.subtitle
        }
    }

    TobbleHero {
        id: mascot
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: root.tobbleAsset.length > 0
        assetName: root.tobbleAsset
        size: 64
    }
}
