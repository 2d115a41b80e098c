import QtQuick

// One of a theme's colours.
Rectangle {
    width: 12
    height: 12
    radius: 6
}
