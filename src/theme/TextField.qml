import QtQuick
import Vantrel.Theme

// A line of text to write. It shows what it is told; what is written goes out at once.
FocusScope {
    id: root

    required property string title
    property string placeholder: ""
    required property string setting

    signal edited(string text)
    /// With Return, and when the keyboard goes elsewhere.
    signal finished(string text)

    implicitWidth: 240
    implicitHeight: Math.max(36, Math.ceil(input.implicitHeight) + 16)

    Rectangle {
        anchors.fill: parent
        radius: 6
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: hover.hovered || input.activeFocus ? root.ThemePaletteKey.palette.accent
                                                         : root.ThemePaletteKey.palette.dotStroke

        FocusRing {
            target: input
            radius: 10
        }
    }

    TextInput {
        id: input
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 12
        anchors.verticalCenter: parent.verticalCenter
        clip: true
        focus: true
        activeFocusOnTab: true
        selectByMouse: true
        text: root.setting
        color: root.ThemePaletteKey.palette.primaryText
        selectionColor: root.ThemePaletteKey.palette.dotStroke
        selectedTextColor: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), Font.Normal)
        Accessible.role: Accessible.EditableText
        Accessible.name: root.title
        Accessible.description: root.placeholder
        Accessible.focusable: true
        onTextEdited: root.edited(input.text)
        onEditingFinished: root.finished(input.text)
    }

    Text {
        anchors.fill: input
        visible: input.text.length === 0 && input.preeditText.length === 0
        text: root.placeholder
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.secondaryText
        font: input.font
        Accessible.ignored: true
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.IBeamCursor
    }

    // Shows the setting in place of what was written.
    function restore() {
        input.text = Qt.binding(() => root.setting);
    }
}
