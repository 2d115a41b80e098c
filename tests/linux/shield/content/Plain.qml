import QtQuick

// One colour from edge to edge.
Rectangle {
    required property string title
}
