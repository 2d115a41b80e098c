import QtQuick
import Vantrel.Takeover
import Vantrel.Theme

// The whole of a takeover, on the monitor with the pointer.
FocusScope {
    id: root

    required property TakeoverViewModel viewModel
    // `palette` is taken: every Item has one of the platform's by that name.
    required property themePalette themePalette
    property bool reducedMotion: false

    readonly property int fadeLength: root.reducedMotion ? 0 : 180

    focus: true
    ThemePaletteKey.palette: root.themePalette
    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.viewModel.isJoined ? "Made it." : root.viewModel.announcement

    TakeoverMetrics {
        id: measures
        screenWidth: root.width
        screenHeight: root.height
    }

    TakeoverGround {
        anchors.fill: parent
        metrics: measures
    }

    TakeoverUrgentFace {
        id: urgentFace
        objectName: "urgentFace"
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.columnTop(height)
        viewModel: root.viewModel
        metrics: measures
        reducedMotion: root.reducedMotion
        enabled: !root.viewModel.isJoined
        visible: opacity > 0
        opacity: root.viewModel.isJoined ? 0 : 1

        Behavior on opacity {
            NumberAnimation { duration: root.fadeLength; easing.type: Easing.OutCubic }
        }
    }

    TakeoverJoinedFace {
        objectName: "joinedFace"
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.columnTop(height)
        metrics: measures
        visible: opacity > 0
        opacity: root.viewModel.isJoined ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: root.fadeLength; easing.type: Easing.OutCubic }
        }
    }

    // The optical centre is a little above the middle.
    function columnTop(columnHeight: real): real {
        return Math.round(Math.max(0.47 * (root.height - columnHeight), 0));
    }
}
