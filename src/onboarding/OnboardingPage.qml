import QtQuick
import QtQuick.Window
import Vantrel.Onboarding
import Vantrel.Theme

// A step: portrait, title and text, what is done here, and the buttons at the foot, which are at
// the same place in each.
FocusScope {
    id: root

    required property OnboardingViewModel viewModel
    required property string title
    property string subtitle: ""
    property string body: ""
    property string portrait: ""
    property bool isHero: false
    property string primaryText: "Continue"
    property bool isPrimaryEnabled: true
    property bool hasBack: true
    /// How to go on without it; empty where there is no other way.
    property string skipText: ""
    /// What has the keyboard at first.
    property Item firstItem: primary
    default property alias parts: parts.data

    signal primaryChosen()
    signal skipped()

    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: root.title
    Component.onCompleted: root.firstItem.focus = true
    Keys.onReturnPressed: event => primary.takeIfEnabled(event)
    Keys.onEnterPressed: event => primary.takeIfEnabled(event)

    Flickable {
        id: view
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: foot.top
        anchors.bottomMargin: 16
        contentHeight: content.height + 16
        interactive: view.contentHeight > view.height
        boundsBehavior: Flickable.StopAtBounds
        clip: view.interactive

        readonly property Item focused: root.Window.activeFocusItem

        onFocusedChanged: view.reveal(view.focused)

        /// Where the text is large, what gets the keyboard may lie outside.
        function reveal(item: Item) {
            let ancestor = item;
            while (ancestor !== null && ancestor !== parts)
                ancestor = ancestor.parent;
            if (ancestor === null)
                return;
            const top = item.mapToItem(content, 0, 0).y;
            const lowest = top + item.height + 16 - view.height;
            view.contentY = Math.max(0, lowest, Math.min(view.contentY, top - 16));
        }

        Column {
            id: content
            x: 32
            width: view.width - 64
            spacing: 20

            Loader {
                id: picture
                anchors.horizontalCenter: parent.horizontalCenter
                visible: root.portrait.length > 0
                sourceComponent: !picture.visible ? undefined : root.isHero ? hero : portrait
            }

            Column {
                width: parent.width
                spacing: 8

                PageTitle {
                    width: parent.width
                    text: root.title
                }

                Text {
                    width: parent.width
                    visible: root.subtitle.length > 0
                    text: root.subtitle
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignLeft
                    color: root.ThemePaletteKey.palette.primaryText
                    font: Typography.reading(Typography.size(0), Font.Medium)
                    Accessible.role: Accessible.StaticText
                    Accessible.name: root.subtitle
                }

                PageText {
                    width: parent.width
                    visible: root.body.length > 0
                    text: root.body
                }
            }

            Column {
                id: parts
                width: parent.width
                spacing: 16
            }
        }
    }

    // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
    // qmllint disable unqualified
    Component {
        id: hero

        TobbleHero {
            objectName: "portrait"
            assetName: root.portrait
            size: 208
        }
    }

    Component {
        id: portrait

        TobblePortrait {
            objectName: "portrait"
            asset: root.portrait
            size: 184
        }
    }
    // qmllint enable unqualified

    Item {
        id: foot
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 32
        anchors.topMargin: 0
        anchors.bottomMargin: 24
        height: primary.height

        OutlinedButton {
            objectName: "back"
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: parent.left
            visible: root.hasBack
            text: qsTr("Back")
            onClicked: root.viewModel.goBack()
        }

        OutlinedButton {
            objectName: "skip"
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: primary.left
            anchors.rightMargin: 12
            visible: root.skipText.length > 0
            text: root.skipText
            onClicked: root.skipped()
        }

        FilledButton {
            id: primary
            objectName: "primary"
            anchors.right: parent.right
            width: Math.max(160, implicitWidth)
            text: root.primaryText
            enabled: root.isPrimaryEnabled
            onClicked: root.primaryChosen()

            function takeIfEnabled(event: KeyEvent) {
                if (primary.enabled)
                    primary.take(event);
            }
        }
    }
}
