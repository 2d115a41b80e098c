import QtQuick

// Keeps the keys it got.
Rectangle {
    id: root

    property bool reducedMotion: false
    property string typed: ""

    color: "#008000"
    Keys.onPressed: event => {
        root.typed += event.text;
        event.accepted = true;
    }
}
