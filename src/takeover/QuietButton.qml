import QtQuick
import Vantrel.Theme

// A second choice: a text with the key that does the same.
Item {
    id: root

    required property string text
    required property string keyLabel
    required property real pixelSize

    signal clicked()

    implicitWidth: row.implicitWidth + 2 * root.pixelSize
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.description: root.keyLabel
    Accessible.onPressAction: root.clicked()

    Rectangle {
        anchors.fill: parent
        visible: hover.hovered
        opacity: tap.pressed ? 1 : 0.6
        radius: height / 2
        color: root.ThemePaletteKey.palette.dimSurface
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Math.round(0.6 * root.pixelSize)

        Text {
            anchors.verticalCenter: parent.verticalCenter
            opacity: 0.85
            text: root.text
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(root.pixelSize, Font.Medium)
            Accessible.ignored: true
        }

        KeyCap {
            anchors.verticalCenter: parent.verticalCenter
            label: root.keyLabel
            pixelSize: Math.round(0.8 * root.pixelSize)
        }
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }
}
