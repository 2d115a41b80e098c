import QtQuick
import QtQuick.Window
import Vantrel.Theme
import Vantrel.Updates

// Which version this is, where it came from and how that is brought up to date.
BrandedSurface {
    id: root

    required property UpdatesViewModel viewModel

    readonly property real margin: 32

    implicitWidth: 480
    implicitHeight: 380
    focus: true
    ThemePaletteKey.palette: root.viewModel.themePalette
    LayoutMirroring.enabled: Qt.locale().textDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Pane
    Accessible.name: "Updates"
    Keys.onEscapePressed: root.Window.window.close()

    TobblePortrait {
        id: portrait
        x: root.LayoutMirroring.enabled ? root.width - width - root.margin : root.margin
        y: root.margin
        asset: "tobble-thoughtful"
        size: 72
    }

    Text {
        id: version
        objectName: "version"
        anchors.left: portrait.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: root.margin
        anchors.bottom: portrait.verticalCenter
        text: "Vantrel " + root.viewModel.version
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(2), Font.Bold)
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Explanation {
        id: promise
        anchors.left: version.left
        anchors.right: version.right
        anchors.top: portrait.verticalCenter
        anchors.topMargin: 4
        text: "It never looks for updates by itself."
    }

    Flickable {
        id: words
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: portrait.bottom
        anchors.topMargin: 24
        anchors.bottom: done.top
        anchors.bottomMargin: 16
        contentHeight: advice.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: contentHeight > height

        Column {
            id: advice
            x: root.margin
            width: words.width - 2 * root.margin
            spacing: 12

            AdviceText {
                width: advice.width
                text: root.viewModel.origin
            }

            AdviceText {
                width: advice.width
                text: root.viewModel.way
            }

            CommandLine {
                visible: root.viewModel.command.length > 0
                width: advice.width
                command: root.viewModel.command
            }
        }
    }

    FilledButton {
        id: done
        objectName: "done"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 24
        text: "Done"
        focus: true
        onClicked: root.Window.window.close()
    }
}
