import QtQuick
import Vantrel.Menubar
import Vantrel.Theme

// A menu: the pointer or the arrow keys light an item, a click, Return or its key chooses it.
FocusScope {
    id: root

    required property MenuModel viewModel
    property real cornerRadius: 16

    property int current: -1
    readonly property real radius: Math.min(root.cornerRadius, 12)

    implicitWidth: Math.max(180, Math.ceil(root.widest(items.count)))
    implicitHeight: rows.height + 12
    focus: true
    ThemePaletteKey.palette: root.viewModel.themePalette
    LayoutMirroring.enabled: root.viewModel.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.PopupMenu
    Accessible.name: "Menu"
    Keys.onDownPressed: root.current = root.viewModel.rowAfter(root.current, 1)
    Keys.onUpPressed: root.current = root.viewModel.rowAfter(root.current, -1)
    Keys.onTabPressed: root.current = root.viewModel.rowAfter(root.current, 1)
    Keys.onBacktabPressed: root.current = root.viewModel.rowAfter(root.current, -1)
    Keys.onReturnPressed: event => root.take(event)
    Keys.onEnterPressed: event => root.take(event)
    Keys.onSpacePressed: event => root.take(event)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            root.current = root.viewModel.rowAfter(-1, 1);
        else if (event.key === Qt.Key_End)
            root.current = root.viewModel.rowAfter(-1, -1);
        else if (event.isAutoRepeat || !root.viewModel.chooseByKey(event.text))
            return root.seek(event);
        event.accepted = true;
    }

    Connections {
        target: root.viewModel

        function onModelReset() { root.current = -1; }
    }

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.dotStroke
        border.width: 1
    }

    Column {
        id: rows

        y: 6
        width: root.width

        Repeater {
            id: items
            model: root.viewModel

            // An inline component reaches the ids of its file, of which the linter is not sure.
            // qmllint disable unqualified
            delegate: MenuRow {
                width: rows.width
                isCurrent: root.current === index
                onEntered: root.current = index
                onChosen: root.viewModel.choose(index)
            }
            // qmllint enable unqualified
        }
    }

    function widest(count: int): real {
        let most = 0;
        for (let row = 0; row < count; ++row)
            most = Math.max(most, items.itemAt(row)?.implicitWidth ?? 0);
        return most;
    }

    /// The letter with which an item begins lights it.
    function seek(event: KeyEvent) {
        const row = root.viewModel.rowBeginningWith(event.text, root.current);
        event.accepted = row >= 0;
        if (row >= 0)
            root.current = row;
    }

    function take(event: KeyEvent) {
        event.accepted = true;
        if (!event.isAutoRepeat)
            root.viewModel.choose(root.current);
    }
}
