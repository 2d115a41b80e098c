import QtQuick
import Vantrel.Theme

// What a takeover shows on every other monitor.
Item {
    id: root

    required property string title
    // `palette` is taken: every Item has one of the platform's by that name.
    required property themePalette themePalette

    ThemePaletteKey.palette: root.themePalette
    Accessible.role: Accessible.Pane
    Accessible.name: root.title

    TakeoverMetrics {
        id: measures
        screenWidth: root.width
        screenHeight: root.height
    }

    TakeoverGround {
        anchors.fill: parent
        metrics: measures
    }

    Column {
        objectName: "echoFace"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(Math.max(0.47 * (root.height - height), 0))
        width: measures.columnWidth

        TakeoverHero {
            anchors.horizontalCenter: parent.horizontalCenter
            size: measures.hero
            pawOpacity: 0.85
        }

        Item {
            width: 1
            height: measures.space(24)
            visible: title.visible
        }

        TakeoverTitle {
            id: title
            objectName: "title"
            width: parent.width
            text: root.title
            fullSize: measures.title
            widest: measures.longTitleWidth
        }
    }
}
