import QtQuick
import Vantrel.Theme

// One card of settings.
Card {
    id: root

    property string title: ""
    default property alias content: place.data

    Accessible.name: root.title

    CardTitle {
        width: parent.width
        visible: root.title.length > 0
        text: root.title
    }

    Column {
        id: place
        width: parent.width
        spacing: 12
    }
}
