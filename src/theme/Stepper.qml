import QtQuick
import Vantrel.Theme

// A number that goes up and down by a press, between two halves of a pill.
RangeControl {
    id: root

    readonly property bool isMirrored: halves.effectiveLayoutDirection === Qt.RightToLeft

    implicitWidth: 97
    implicitHeight: 36
    Accessible.role: Accessible.SpinBox
    Keys.onLeftPressed: root.step(root.isMirrored ? 1 : -1)
    Keys.onRightPressed: root.step(root.isMirrored ? -1 : 1)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: root.ThemePaletteKey.palette.surfaceBackground
        border.color: root.ThemePaletteKey.palette.dotStroke
    }

    Row {
        id: halves

        StepperHalf {
            objectName: "less"
            symbol: "minus"
            enabled: root.setting > root.minimumValue
            onPressed: root.stepByPointer(-1)
        }

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 1
            height: 18
            color: root.ThemePaletteKey.palette.dotStroke
        }

        StepperHalf {
            objectName: "more"
            symbol: "plus"
            enabled: root.setting < root.maximumValue
            onPressed: root.stepByPointer(1)
        }
    }

    FocusRing {
        target: root
        radius: root.height / 2 + 4
    }

    function stepByPointer(count: int) {
        root.forceActiveFocus(Qt.MouseFocusReason);
        root.step(count);
    }
}
