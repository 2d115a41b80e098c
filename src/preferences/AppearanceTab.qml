import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// The five looks, and a taste of the one that is picked.
Column {
    id: root

    required property AppearanceTabModel viewModel

    readonly property var offers: root.viewModel.themes
    // Side by side where a card has room for its words.
    readonly property int columnCount: root.width < 36 * Typography.size(0) ? 1 : 2
    readonly property real cardWidth: (root.width - 12 * (root.columnCount - 1)) / root.columnCount

    readonly property bool isMirrored: grid.effectiveLayoutDirection === Qt.RightToLeft

    spacing: 12

    TabHeader {
        width: parent.width
        title: qsTr("Appearance")
        subtitle: qsTr("Pick how Tobble looks. The voice stays the same.")
        tobbleAsset: "tobble-content"
    }

    FocusScope {
        width: parent.width
        height: grid.height
        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Appearance")
        Keys.onLeftPressed: root.pick(root.viewModel.selected + (root.isMirrored ? 1 : -1))
        Keys.onRightPressed: root.pick(root.viewModel.selected + (root.isMirrored ? -1 : 1))
        Keys.onUpPressed: root.pick(root.viewModel.selected - root.columnCount)
        Keys.onDownPressed: root.pick(root.viewModel.selected + root.columnCount)

        Flow {
            id: grid
            width: parent.width
            spacing: 12

            Repeater {
                id: cards
                model: root.offers

                // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
                // qmllint disable unqualified
                ThemeCard {
                    required property int index
                    required property themeOffer modelData

                    width: root.cardWidth
                    offer: modelData
                    isSelected: root.viewModel.selected === index
                    focus: isSelected
                    onClicked: root.viewModel.select(index)
                }
                // qmllint enable unqualified
            }

            Item {
                width: root.cardWidth
                height: 76
                // The arrow keys are the cards'.
                Keys.onLeftPressed: {}
                Keys.onRightPressed: {}
                Keys.onUpPressed: {}
                Keys.onDownPressed: {}

                OutlinedButton {
                    objectName: "showDemoAlert"
                    anchors.centerIn: parent
                    text: qsTr("Show Demo Alert")
                    symbol: "play.fill"
                    onClicked: root.viewModel.showDemoAlert()
                }
            }
        }
    }

    ThemePreview {
        width: parent.width
    }

    function pick(index: int) {
        if (index < 0 || index >= cards.count)
            return;
        root.viewModel.select(index);
        cards.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }
}
