import QtQuick
import Vantrel.Theme

// What the two ends of a slider mean.
Item {
    id: root

    required property string first
    required property string last

    implicitHeight: Math.max(start.implicitHeight, end.implicitHeight)

    Explanation {
        id: start
        anchors.left: parent.left
        width: (parent.width - 16) / 2
        text: root.first
    }

    Explanation {
        id: end
        anchors.right: parent.right
        width: (parent.width - 16) / 2
        horizontalAlignment: Text.AlignRight
        text: root.last
    }
}
