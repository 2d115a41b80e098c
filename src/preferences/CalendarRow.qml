import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// A calendar: its colour, its name, what is special about it, and whether it is watched.
Item {
    id: root

    required property calendarOffer calendar
    required property bool isSelected

    signal flipped(bool isSelected)

    implicitHeight: 40

    Rectangle {
        id: dot
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 12
        height: 12
        radius: 6
        color: root.calendar.color
    }

    Text {
        id: title
        anchors.left: dot.right
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(title.implicitWidth),
                        parent.width - 92 - (mark.visible ? mark.width + 12 : 0))
        text: root.calendar.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        maximumLineCount: 1
        horizontalAlignment: Text.AlignLeft
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.reading(Typography.size(0), Font.Normal)
        Accessible.ignored: true
    }

    Row {
        id: mark
        anchors.left: title.right
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: root.calendar.mark.length > 0
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 14
            height: 14
            name: root.calendar.markSymbol
            color: root.ThemePaletteKey.palette.secondaryText
        }

        Text {
            text: root.calendar.mark
            textFormat: Text.PlainText
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(0.9 * Typography.size(0), Font.Normal)
            Accessible.ignored: true
        }
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.flipped(!root.isSelected)
    }

    ToggleSwitch {
        objectName: "switch"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        title: root.calendar.title
        description: root.calendar.mark
        isOn: root.isSelected
        onFlipped: isSelected => root.flipped(isSelected)
    }
}
