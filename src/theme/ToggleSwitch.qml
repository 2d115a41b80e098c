import QtQuick
import Vantrel.Theme

// On or off. It shows what it is told; a press asks for the other one.
Pressable {
    id: root

    required property string title
    property string description: ""
    required property bool isOn

    signal flipped(bool isOn)

    readonly property color ground: root.isOn ? root.ThemePaletteKey.palette.accent
                                              : root.ThemePaletteKey.palette.dimSurface

    implicitWidth: 44
    ringRadius: track.radius
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.title
    Accessible.description: root.description
    Accessible.checkable: true
    Accessible.checked: root.isOn
    Accessible.onToggleAction: root.clicked()
    onClicked: root.flipped(!root.isOn)

    Rectangle {
        id: track
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 26
        radius: 13
        color: root.ground
        border.color: root.isOn ? root.ThemePaletteKey.palette.accent
                                : root.ThemePaletteKey.palette.secondaryText

        Rectangle {
            id: knob
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: root.isOn ? undefined : parent.left
            anchors.right: root.isOn ? parent.right : undefined
            anchors.margins: 4
            width: 18
            height: 18
            radius: 9
            color: root.isOn ? root.ThemePaletteKey.palette.accentForeground
                             : root.ThemePaletteKey.palette.secondaryText
        }
    }
}
