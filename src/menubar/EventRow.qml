import QtQuick
import Vantrel.Theme

// One meeting of the list.
Item {
    id: root

    required property int index
    required property string section
    required property string title
    required property string timeRange
    required property bool isRecurring
    required property string detail
    required property bool isDetailLink
    required property color calendarColor
    required property bool isJoinable
    required property string spoken
    required property bool isRinged

    signal joined()
    signal picked()

    implicitHeight: texts.implicitHeight + 20
    Accessible.role: Accessible.ListItem
    Accessible.name: root.spoken
    Accessible.description: root.section
    Accessible.focusable: true
    Accessible.focused: root.isRinged
    Accessible.selectable: true
    Accessible.selected: root.isRinged
    Accessible.onPressAction: root.joined()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        anchors.topMargin: 4
        anchors.bottomMargin: 4
        radius: 8
        color: hover.hovered || root.isRinged ? root.ThemePaletteKey.palette.dimSurface : "transparent"

        Rectangle {
            anchors.fill: parent
            anchors.margins: -4
            visible: root.isRinged
            radius: 12
            color: "transparent"
            border.color: root.ThemePaletteKey.palette.accent
            border.width: 2
        }
    }

    Rectangle {
        id: bar
        objectName: "calendarBar"
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        width: 4
        height: texts.height
        radius: 2
        color: root.calendarColor
    }

    Column {
        id: texts
        anchors.left: bar.right
        anchors.leftMargin: 10
        anchors.right: join.visible ? join.left : parent.right
        anchors.rightMargin: join.visible ? 8 : 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            id: titleText
            objectName: "eventTitle"
            visible: root.title.length > 0
            width: parent.width
            text: root.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.primaryText
            font: Typography.reading(Typography.size(0), Font.Medium)
            Accessible.ignored: true

            HoverHandler { id: titleHover }

            Hint {
                target: titleText
                text: titleText.text
                isWanted: titleHover.hovered && titleText.truncated
            }
        }

        Row {
            width: parent.width
            spacing: 5

            Text {
                id: time
                objectName: "eventTime"
                text: root.timeRange
                textFormat: Text.PlainText
                color: root.ThemePaletteKey.palette.secondaryText
                font: Typography.reading(0.92 * Typography.size(0), Font.Normal)
                Accessible.ignored: true
            }

            Symbol {
                objectName: "repeats"
                anchors.verticalCenter: time.verticalCenter
                visible: root.isRecurring
                width: 12
                height: 12
                name: "arrow.triangle.2.circlepath"
                color: root.ThemePaletteKey.palette.secondaryText
            }
        }

        Text {
            id: detailText
            objectName: "eventDetail"
            visible: root.detail.length > 0
            width: parent.width
            text: root.detail
            textFormat: Text.PlainText
            elide: root.isDetailLink ? Text.ElideMiddle : Text.ElideRight
            maximumLineCount: 1
            horizontalAlignment: Text.AlignLeft
            color: root.ThemePaletteKey.palette.secondaryText
            font: Typography.reading(0.85 * Typography.size(0), Font.Normal)
            Accessible.ignored: true

            HoverHandler { id: detailHover }

            Hint {
                target: detailText
                text: detailText.text
                isWanted: detailHover.hovered && detailText.truncated
            }
        }
    }

    JoinButton {
        id: join
        objectName: "join"
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isJoinable
        meeting: root.title
        onClicked: root.joined()
    }

    HoverHandler { id: hover }

    TapHandler { onTapped: root.picked() }
}
