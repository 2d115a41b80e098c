import QtQuick

// Green where it is to keep still, else blue.
Rectangle {
    required property string title
    property bool reducedMotion: false

    color: reducedMotion ? "#008000" : "#000080"
}
