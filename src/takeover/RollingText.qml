import QtQuick

// A text that rolls downwards to its next one. The two hardly overlap, since together they could be
// read as neither.
Item {
    id: root

    required property string text
    required property font font
    required property color color
    // In milliseconds; 0 changes at once.
    required property int changeLength

    property real progress: 1
    property string shown
    property string leaving

    implicitWidth: current.implicitWidth
    implicitHeight: current.implicitHeight

    onTextChanged: {
        root.leaving = root.shown;
        root.shown = root.text;
        if (root.changeLength > 0 && root.leaving.length > 0)
            roll.restart();
    }
    Component.onCompleted: root.shown = root.text

    NumberAnimation {
        id: roll
        target: root
        property: "progress"
        from: 0
        to: 1
        duration: root.changeLength
        easing.type: Easing.OutCubic
    }

    Text {
        id: current
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round((root.progress - 1) * 0.3 * root.implicitHeight)
        opacity: Math.max(0, 1.6 * root.progress - 0.6)
        text: root.shown
        textFormat: Text.PlainText
        font: root.font
        color: root.color
        Accessible.ignored: true
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(root.progress * 0.3 * root.implicitHeight)
        visible: root.progress < 1
        opacity: Math.max(0, 1 - 1.6 * root.progress)
        text: root.leaving
        textFormat: Text.PlainText
        font: root.font
        color: root.color
        Accessible.ignored: true
    }
}
