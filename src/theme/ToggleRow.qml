import QtQuick
import Vantrel.Theme

// A setting that is on or off: what it is, and its switch at the end of the line.
Item {
    id: root

    required property string title
    property string description: ""
    required property bool isOn

    signal flipped(bool isOn)

    implicitHeight: Math.max(texts.implicitHeight, toggle.implicitHeight)

    Column {
        id: texts
        anchors.left: parent.left
        anchors.right: toggle.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        CardTitle {
            width: parent.width
            text: root.title
        }

        Explanation {
            width: parent.width
            visible: root.description.length > 0
            text: root.description
        }
    }

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.flipped(!root.isOn)
    }

    ToggleSwitch {
        id: toggle
        objectName: "switch"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        title: root.title
        description: root.description
        isOn: root.isOn
        onFlipped: isOn => root.flipped(isOn)
    }
}
