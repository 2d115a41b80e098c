import QtQuick
import QtQuick.Window
import Vantrel.Onboarding
import Vantrel.Theme

// The first run: one step at a time beneath the strip that says how far it is.
BrandedSurface {
    id: root

    required property OnboardingViewModel viewModel
    property bool reducedMotion: false

    readonly property var pages: ({
        welcome: "WelcomePage.qml",
        calendar: "CalendarPage.qml",
        notifications: "NotificationsPage.qml",
        theme: "ThemePage.qml",
        demoTakeover: "DemoTakeoverPage.qml",
        launchAtLogin: "LaunchAtLoginPage.qml",
        done: "DonePage.qml"
    })

    implicitWidth: 660
    implicitHeight: 640
    focus: true
    ThemePaletteKey.palette: root.viewModel.palette
    LayoutMirroring.enabled: Qt.locale().textDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Pane
    Accessible.name: "Welcome to Vantrel"

    DragHandler {
        target: null
        onActiveChanged: if (active) root.Window.window.startSystemMove()
    }

    ProgressStrip {
        id: strip
        objectName: "progress"
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 32
        anchors.topMargin: 24
        number: root.viewModel.stepNumber
        count: root.viewModel.stepCount
        moveLength: root.reducedMotion ? 0 : 240
    }

    Loader {
        id: page
        objectName: "page"
        anchors.top: strip.bottom
        anchors.topMargin: 24
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        focus: true

        readonly property string step: root.viewModel.step

        onStepChanged: {
            const isFirst = page.item === null;
            page.setSource(root.pages[page.step], {viewModel: root.viewModel});
            if (!isFirst && !root.reducedMotion)
                appearing.restart();
        }

        NumberAnimation {
            id: appearing
            target: page
            property: "opacity"
            from: 0
            to: 1
            duration: 180
            easing.type: Easing.OutCubic
        }
    }
}
