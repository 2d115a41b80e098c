import QtQuick

// The moment after a join.
Column {
    id: root

    required property TakeoverMetrics metrics

    width: root.metrics.columnWidth

    TakeoverHero {
        anchors.horizontalCenter: parent.horizontalCenter
        size: root.metrics.hero
        isBadged: true
    }

    Item {
        width: 1
        height: root.metrics.space(24)
    }

    TakeoverTitle {
        objectName: "madeIt"
        width: parent.width
        text: "Made it."
        fullSize: root.metrics.title
        widest: root.metrics.longTitleWidth
    }
}
