import QtQuick
import QtQuick.Window
import Vantrel.Theme
import Vantrel.Updates

// Which version this is, where it came from and how that is brought up to date.
FocusScope {
    id: root

    required property UpdatesViewModel viewModel

    readonly property real unit: Typography.size(0)

    implicitWidth: 480
    implicitHeight: 360
    focus: true
    ThemePaletteKey.palette: root.viewModel.themePalette
    Accessible.role: Accessible.Pane
    Accessible.name: "Updates"
    Keys.onEscapePressed: root.Window.window.close()

    Rectangle {
        anchors.fill: parent
        color: root.ThemePaletteKey.palette.surfaceBackground
    }

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 32
        spacing: 16

        Text {
            objectName: "version"
            width: parent.width
            text: "Vantrel " + root.viewModel.version
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.rounded(Typography.size(2), Font.Bold)
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        Repeater {
            model: [root.viewModel.origin, root.viewModel.way]

            Text {
                required property string modelData
                width: parent.width
                text: modelData
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                lineHeight: 1.25
                color: root.ThemePaletteKey.palette.primaryText
                font: Typography.reading(root.unit, Font.Normal)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }

        CommandLine {
            visible: root.viewModel.command.length > 0
            width: parent.width
            command: root.viewModel.command
        }

        Text {
            width: parent.width
            text: "Vantrel itself never looks for updates: it opens no connection."
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(root.unit, Font.Normal)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
