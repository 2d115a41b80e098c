import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// The pages' names. The arrow keys go from one to the next and open it.
FocusScope {
    id: root

    required property PreferencesModel viewModel

    implicitWidth: Math.max(200, Math.round(13.5 * Typography.size(0)))

    Connections {
        target: root.viewModel

        function onSelectionChanged() {
            if (root.activeFocus)
                rows.itemAt(root.viewModel.selection).forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Rectangle {
        anchors.fill: parent
        color: root.ThemePaletteKey.palette.dimSurface
    }

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Item {
        id: header
        width: parent.width
        height: 84

        TobblePortrait {
            id: portrait
            anchors.left: parent.left
            anchors.leftMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            asset: "tobble-rescue"
            size: 44
            color: root.ThemePaletteKey.palette.surfaceBackground
        }

        Text {
            anchors.left: portrait.right
            anchors.leftMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: "Vantrel"
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.rounded(Typography.size(1), Font.Bold)
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }

    Column {
        id: column
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.margins: 12
        anchors.topMargin: 0
        spacing: 2
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Preferences")
        Keys.onUpPressed: root.go(root.viewModel.selection - 1)
        Keys.onDownPressed: root.go(root.viewModel.selection + 1)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
            if (event.accepted)
                root.go(event.key === Qt.Key_Home ? 0 : rows.count - 1);
        }

        Repeater {
            id: rows
            model: root.viewModel.tabs

            // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            SidebarRow {
                required property int index
                required property sidebarTab modelData

                width: column.width
                tab: modelData
                isSelected: root.viewModel.selection === index
                focus: isSelected
                onClicked: root.go(index)
            }
            // qmllint enable unqualified
        }
    }

    function go(index: int) {
        const bounded = Math.max(0, Math.min(index, rows.count - 1));
        root.viewModel.selectIndex(bounded);
        rows.itemAt(bounded).forceActiveFocus(Qt.TabFocusReason);
    }
}
