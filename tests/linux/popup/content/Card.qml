import QtQuick

// Green, with the keys and the clicks it got counted; tells a listener of each click.
Rectangle {
    id: root

    property QtObject listener: null
    property real cornerRadius: -1
    property bool reducedMotion: false
    property string typed: ""
    property int clicks: 0

    implicitWidth: 200
    implicitHeight: 100
    color: "#008000"
    radius: Math.max(root.cornerRadius, 0)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Escape)
            root.typed += event.text;
        event.accepted = event.key !== Qt.Key_Escape;
    }

    TapHandler {
        onTapped: {
            root.clicks += 1;
            if (root.listener)
                root.listener.hear();
        }
    }
}
