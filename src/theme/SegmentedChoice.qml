import QtQuick
import Vantrel.Theme

// One out of a few, side by side. The arrow keys choose, as among radio buttons.
FocusScope {
    id: root

    required property string title
    required property var options
    required property int current

    signal chosen(int index)

    implicitWidth: row.implicitWidth + 6
    implicitHeight: 40
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title
    Keys.onLeftPressed: root.move(root.isMirrored ? 1 : -1)
    Keys.onRightPressed: root.move(root.isMirrored ? -1 : 1)
    Keys.onUpPressed: root.move(-1)
    Keys.onDownPressed: root.move(1)

    readonly property bool isMirrored: row.effectiveLayoutDirection === Qt.RightToLeft

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.ThemePaletteKey.palette.dimSurface
    }

    Row {
        id: row
        anchors.centerIn: parent

        Repeater {
            id: segments
            model: root.options

            // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            Segment {
                isChosen: root.current === index
                focus: root.current === index
                onClicked: root.chosen(index)
            }
            // qmllint enable unqualified
        }
    }

    function move(by: int) {
        const next = Math.max(0, Math.min(root.current + by, root.options.length - 1));
        if (next !== root.current)
            root.chosen(next);
        segments.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
    }
}
