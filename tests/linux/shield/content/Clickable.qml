import QtQuick

// Turns green at a click, and blue at a key that nobody consumed.
Rectangle {
    id: root

    required property string title

    color: "#800000"
    Keys.onPressed: root.color = "#000080"

    TapHandler {
        onTapped: root.color = "#008000"
    }
}
