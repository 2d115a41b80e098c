import QtQuick
import Vantrel.Theme

// A card that shows a setting's value beside its title, and its control beneath.
Card {
    id: root

    required property string title
    required property string description
    required property string value
    default property alias control: place.data

    Accessible.name: root.title

    Item {
        width: parent.width
        height: Math.max(label.height, badge.height)

        CardTitle {
            id: label
            anchors.left: parent.left
            anchors.right: badge.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
        }

        ValueBadge {
            id: badge
            objectName: "value"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: root.value
        }
    }

    Explanation {
        width: parent.width
        text: root.description
    }

    Column {
        id: place
        width: parent.width
        spacing: 4
    }
}
