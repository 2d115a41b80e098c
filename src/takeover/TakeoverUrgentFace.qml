import QtQuick
import Vantrel.Takeover
import Vantrel.Theme

// The meeting that is about to start, and what one can do about it.
Column {
    id: root

    required property TakeoverViewModel viewModel
    required property TakeoverMetrics metrics
    required property bool reducedMotion

    width: root.metrics.columnWidth

    TakeoverHero {
        objectName: "hero"
        anchors.horizontalCenter: parent.horizontalCenter
        size: root.metrics.hero
    }

    Item {
        width: 1
        height: root.metrics.space(24)
        visible: title.visible
    }

    TakeoverTitle {
        id: title
        objectName: "title"
        width: parent.width
        text: root.viewModel.title
        fullSize: root.metrics.title
        widest: root.metrics.longTitleWidth
    }

    Item {
        width: 1
        height: root.metrics.space(title.visible ? 12 : 24)
    }

    TabularText {
        objectName: "countdown"
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.viewModel.countdownText
        font: Typography.rounded(root.metrics.countdown, Font.Medium)
        color: ThemePaletteKey.palette.primaryText
        changeLength: root.reducedMotion ? 0 : 180
    }

    Text {
        objectName: "copyLine"
        width: parent.width
        topPadding: root.metrics.space(12)
        visible: text.length > 0
        text: root.viewModel.copyLine
        textFormat: Text.PlainText
        color: ThemePaletteKey.palette.secondaryText
        font: Typography.reading(root.metrics.copyLine, Font.Normal)
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Item {
        width: 1
        height: root.metrics.space(48)
    }

    PrimaryButton {
        objectName: "primaryButton"
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.max(implicitWidth, root.metrics.buttonWidth)
        height: root.metrics.buttonHeight
        text: root.viewModel.primaryActionLabel
        pixelSize: root.metrics.button
        onClicked: root.viewModel.join()
    }

    Item {
        width: 1
        height: root.metrics.space(16)
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: root.metrics.space(16)

        QuietButton {
            objectName: "snoozeButton"
            height: root.metrics.buttonHeight
            text: "Snooze"
            keyLabel: "S"
            pixelSize: root.metrics.quietButton
            onClicked: root.viewModel.snooze()
        }

        QuietButton {
            objectName: "dismissButton"
            height: root.metrics.buttonHeight
            text: "Dismiss"
            keyLabel: "Esc"
            pixelSize: root.metrics.quietButton
            onClicked: root.viewModel.dismiss()
        }
    }
}
