import QtQuick
import Vantrel.Theme

// A line for a terminal, to be selected and copied.
Rectangle {
    id: root

    required property string command

    implicitHeight: line.implicitHeight + 24
    radius: 6
    color: root.ThemePaletteKey.palette.dimSurface
    border.width: line.activeFocus ? 2 : 1
    border.color: line.activeFocus ? root.ThemePaletteKey.palette.accent
                                   : root.ThemePaletteKey.palette.dotStroke

    TextEdit {
        id: line
        objectName: "command"
        anchors.fill: parent
        anchors.margins: 12
        text: root.command
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        readOnly: true
        selectByMouse: true
        activeFocusOnTab: true
        color: root.ThemePaletteKey.palette.primaryText
        selectionColor: root.ThemePaletteKey.palette.dotStroke
        selectedTextColor: root.ThemePaletteKey.palette.primaryText
        font.family: "monospace"
        font.pixelSize: Typography.size(0)
        Accessible.role: Accessible.EditableText
        Accessible.readOnly: true
        Accessible.name: "Command"
        // Whoever comes by keyboard comes to copy it.
        onActiveFocusChanged: activeFocus ? selectAll() : deselect()
        // A read-only line has no use for Tab but to be left.
        KeyNavigation.priority: KeyNavigation.BeforeItem
    }
}
