import QtQuick
import Vantrel.Theme

// A number on a line, with a dot at each step.
RangeControl {
    id: root

    readonly property real share: Math.max(0, Math.min(1, (root.setting - root.minimumValue)
                                                          / (root.maximumValue - root.minimumValue)))
    readonly property int stepCount: Math.round((root.maximumValue - root.minimumValue) / root.stepSize)
    readonly property real reach: root.width - knob.width
    readonly property bool isMirrored: origin.x > 0

    implicitHeight: 36
    Accessible.role: Accessible.Slider
    Keys.onLeftPressed: root.step(root.isMirrored ? 1 : -1)
    Keys.onRightPressed: root.step(root.isMirrored ? -1 : 1)

    Item {
        id: origin
        anchors.left: parent.left
    }

    Rectangle {
        id: track
        anchors.verticalCenter: parent.verticalCenter
        width: root.width
        height: 6
        radius: 3
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Rectangle {
        anchors.left: track.left
        anchors.verticalCenter: parent.verticalCenter
        width: knob.width / 2 + root.share * root.reach
        height: track.height
        radius: track.radius
        color: root.ThemePaletteKey.palette.accent
    }

    Repeater {
        model: root.stepCount + 1

        // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
        // qmllint disable unqualified
        Rectangle {
            required property int index

            anchors.left: track.left
            anchors.leftMargin: knob.width / 2 + index / root.stepCount * root.reach - width / 2
            anchors.verticalCenter: track.verticalCenter
            width: 2
            height: 2
            radius: 1
            color: index / root.stepCount <= root.share ? root.ThemePaletteKey.palette.accentForeground
                                                        : root.ThemePaletteKey.palette.secondaryText
        }
        // qmllint enable unqualified
    }

    Rectangle {
        id: knob
        anchors.left: track.left
        anchors.leftMargin: root.share * root.reach
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        radius: 11
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.accent
        border.width: pointer.pressed || pointer.containsMouse ? 3 : 2

        FocusRing {
            target: root
            radius: 15
        }
    }

    MouseArea {
        id: pointer
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.PointingHandCursor
        onPressed: event => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.goTo(event.x);
        }
        onPositionChanged: event => {
            if (pointer.pressed)
                root.goTo(event.x);
        }
    }

    function goTo(x: real) {
        const along = (x - knob.width / 2) / root.reach;
        const share = root.isMirrored ? 1 - along : along;
        root.ask(root.minimumValue + share * (root.maximumValue - root.minimumValue));
    }
}
