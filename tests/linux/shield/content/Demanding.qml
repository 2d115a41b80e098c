import QtQuick

// Asks for more than it is given.
Rectangle {
    required property string title
    required property string subtitle
}
