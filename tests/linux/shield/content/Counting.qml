import QtQuick

// Turns green when it is finished at its full size, and red at every size it gets after that.
Rectangle {
    id: root

    required property string title
    property bool isFinished: false

    color: "#000080"
    onWidthChanged: if (root.isFinished) root.color = "#800000"
    onHeightChanged: if (root.isFinished) root.color = "#800000"
    Component.onCompleted: {
        root.isFinished = true;
        if (root.width === 800 && root.height === 600)
            root.color = "#008000";
    }
}
