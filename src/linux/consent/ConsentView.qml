import QtQuick
import Vantrel.Consent
import Vantrel.Theme

// The question whether the calendars may be read.
FocusScope {
    id: root

    required property ConsentViewModel viewModel
    // `palette` is taken: every Item has one of the platform's by that name.
    required property themePalette themePalette

    readonly property real unit: Typography.size(0)
    readonly property real margin: 24
    /// So that at least two places are seen.
    readonly property real leastHeight: root.implicitHeight - places.implicitHeight
                                        + Math.min(places.implicitHeight, 2.5 * places.rowHeight)

    implicitWidth: Math.round(Math.max(36 * root.unit, 460))
    implicitHeight: 2 * root.margin + heading.implicitHeight + 20 + caption.height + 8
                    + places.implicitHeight + 24 + allow.implicitHeight
    focus: true
    ThemePaletteKey.palette: root.themePalette
    LayoutMirroring.enabled: Qt.locale().textDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.Dialog
    Accessible.name: "May Vantrel read your calendars?"
    Keys.onEscapePressed: event => {
        if (!event.isAutoRepeat)
            root.viewModel.refuse();
    }
    Keys.onReturnPressed: event => allow.take(event)
    Keys.onEnterPressed: event => allow.take(event)

    Rectangle {
        anchors.fill: parent
        color: root.ThemePaletteKey.palette.surfaceBackground
    }

    ConsentHeading {
        id: heading
        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: root.margin
    }

    Text {
        id: caption
        anchors.top: heading.bottom
        anchors.topMargin: 20
        anchors.left: parent.left
        anchors.leftMargin: root.margin
        text: "It would look here:"
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.secondaryText
        font: Typography.reading(0.9 * root.unit, Font.Medium)
    }

    ConsentPlaces {
        id: places
        anchors.top: caption.bottom
        anchors.topMargin: 8
        anchors.bottom: allow.top
        anchors.bottomMargin: 24
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: root.margin
        anchors.rightMargin: root.margin
        places: root.viewModel.places
    }

    ConsentButton {
        id: refuse
        objectName: "refuse"
        anchors.verticalCenter: allow.verticalCenter
        anchors.right: allow.left
        anchors.rightMargin: 12
        text: "Don't Allow"
        keyLabel: "Esc"
        onChosen: root.viewModel.refuse()
    }

    ConsentButton {
        id: allow
        objectName: "allow"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: root.margin
        text: "Allow"
        isPrimary: true
        focus: true
        onChosen: root.viewModel.allow()
    }
}
