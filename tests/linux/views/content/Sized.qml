import QtQuick

// Remembers the size at which it was completed.
Item {
    id: root

    required property string title
    property real completedWidth: -1

    implicitWidth: 120
    implicitHeight: 40
    Component.onCompleted: root.completedWidth = root.width
}
