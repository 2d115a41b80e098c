import QtQuick

// Wants to know whether it is to keep still.
Item {
    property bool reducedMotion: false
}
