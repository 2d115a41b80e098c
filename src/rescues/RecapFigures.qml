import QtQuick
import Vantrel.Rescues
import Vantrel.Theme

// The week's rescues: the number is the picture.
Column {
    id: root

    required property RecapViewModel viewModel

    Item {
        id: hero
        width: root.width
        height: column.implicitHeight
        Accessible.role: Accessible.Heading
        Accessible.name: root.viewModel.lead + " " + root.viewModel.count + " " + root.viewModel.tail

        Column {
            id: column
            width: parent.width

            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: root.viewModel.lead
                textFormat: Text.PlainText
                color: root.ThemePaletteKey.palette.primaryText
                font: Typography.rounded(Typography.size(2), Font.DemiBold)
                Accessible.ignored: true
            }

            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 32
                text: root.viewModel.count
                textFormat: Text.PlainText
                color: root.ThemePaletteKey.palette.accent
                font: Typography.rounded(96, Font.Bold)
                lineHeight: 0.86
                Accessible.ignored: true
            }

            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: root.viewModel.tail
                textFormat: Text.PlainText
                color: root.ThemePaletteKey.palette.primaryText
                font: Typography.rounded(Typography.size(2), Font.DemiBold)
                Accessible.ignored: true
            }
        }
    }

    Item { width: 1; height: 20 }

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 96
        height: 1
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Item { width: 1; height: 16 }

    Column {
        objectName: "statistics"
        anchors.horizontalCenter: parent.horizontalCenter
        visible: root.viewModel.sources.length + root.viewModel.refusals.length > 0
        spacing: 8

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.viewModel.sources.length > 0
            spacing: 8

            Repeater {
                model: root.viewModel.sources
                RecapPill {}
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.viewModel.refusals.length > 0
            spacing: 8

            Repeater {
                model: root.viewModel.refusals
                RecapPill {}
            }
        }
    }

    Text {
        width: root.width
        topPadding: 12
        horizontalAlignment: Text.AlignHCenter
        visible: text.length > 0
        text: root.viewModel.friends
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(1), Font.DemiBold)
    }

    Text {
        width: root.width
        topPadding: 16
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        visible: text.length > 0
        text: root.viewModel.flourish
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.secondaryText
        font: Typography.reading(Typography.size(0), Font.Normal)
    }
}
