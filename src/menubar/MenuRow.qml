import QtQuick
import Vantrel.Theme

// One line of a menu, or the line between two.
Item {
    id: root

    required property int index
    required property string title
    required property string keyEquivalent
    required property bool isSeparator
    required property bool isEnabled
    required property bool isCurrent

    readonly property bool isLit: root.isCurrent && root.isEnabled

    signal chosen()
    signal entered()

    implicitWidth: Math.ceil(boldTitle.advanceWidth) + (key.visible ? key.width + 24 : 0) + 40
    enabled: root.isEnabled && !root.isSeparator
    focus: root.isLit
    implicitHeight: root.isSeparator ? 9 : Math.max(36, Math.round(label.implicitHeight) + 14)
    Accessible.role: root.isSeparator ? Accessible.Separator : Accessible.MenuItem
    Accessible.name: root.title
    Accessible.description: root.keyEquivalent.toUpperCase()
    Accessible.focusable: root.isEnabled
    Accessible.focused: root.isLit
    Accessible.onPressAction: root.chosen()

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isSeparator
        height: 1
        color: root.ThemePaletteKey.palette.dotStroke
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        visible: root.isLit
        radius: 6
        color: root.ThemePaletteKey.palette.accent
    }

    // A lit title is bold; its row is as wide before as then.
    TextMetrics {
        id: boldTitle
        text: root.title
        font: Typography.reading(Typography.size(0), Font.DemiBold)
    }

    Text {
        id: label
        objectName: "menuTitle"
        anchors.left: parent.left
        anchors.right: key.visible ? key.left : parent.right
        anchors.leftMargin: 18
        anchors.rightMargin: key.visible ? 12 : 18
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.isSeparator
        opacity: root.isEnabled ? 1 : 0.4
        text: root.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        color: root.isLit ? root.ThemePaletteKey.palette.accentForeground
                          : root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), root.isLit ? Font.DemiBold : Font.Normal)
        Accessible.ignored: true
    }

    KeyCap {
        id: key
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        visible: root.keyEquivalent.length > 0
        opacity: root.isEnabled ? 1 : 0.4
        label: root.keyEquivalent.toUpperCase()
        pixelSize: Math.round(0.8 * Typography.size(0))
    }

    HoverHandler {
        onHoveredChanged: if (hovered) root.entered()
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.chosen()
    }
}
