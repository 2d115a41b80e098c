import QtQuick
import QtQuick.Window
import Vantrel.Rescues
import Vantrel.Theme

// How often the user was fetched this week: a small poster.
FocusScope {
    id: root

    required property RecapViewModel viewModel

    readonly property real unit: Typography.size(0)
    readonly property Item face: root.viewModel.isEmpty ? greeting : figures

    implicitWidth: 520
    implicitHeight: 600
    focus: true
    ThemePaletteKey.palette: root.viewModel.palette
    LayoutMirroring.enabled: Qt.locale().textDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Pane
    Accessible.name: "This Week's Rescues"
    Keys.onEscapePressed: root.Window.window.close()

    Rectangle {
        anchors.fill: parent
        color: root.ThemePaletteKey.palette.surfaceBackground
    }

    DragHandler {
        target: null
        onActiveChanged: if (active) root.Window.window.startSystemMove()
    }

    Tobble {
        id: mascot
        objectName: "mascot"
        readonly property real room: root.height - root.face.implicitHeight - controls.height - 88
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round((root.height - controls.height - mascot.height - 24
                       - root.face.implicitHeight) / 2)
        width: mascot.height
        height: Math.round(Math.max(96, Math.min(220, mascot.room)))
        pose: root.viewModel.isEmpty ? "tobble-thoughtful" : "tobble-rescue"
    }

    RecapGreeting {
        id: greeting
        objectName: "greeting"
        visible: root.viewModel.isEmpty
        anchors.top: mascot.bottom
        anchors.topMargin: 24
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.width - 96
    }

    RecapFigures {
        id: figures
        objectName: "figures"
        visible: !root.viewModel.isEmpty
        anchors.top: mascot.bottom
        anchors.topMargin: 24
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.width - 96
        viewModel: root.viewModel
    }

    Row {
        id: controls
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        height: root.viewModel.canSeedSample || root.viewModel.canClear ? 56 : 0
        visible: height > 0
        spacing: 12

        RecapControl {
            visible: root.viewModel.canSeedSample
            text: "Seed sample week"
            onChosen: root.viewModel.seedSample()
        }

        RecapControl {
            visible: root.viewModel.canClear
            text: "Clear"
            onChosen: root.viewModel.clear()
        }
    }
}
