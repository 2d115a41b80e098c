import QtQuick
import Vantrel.Theme

// One line of text whose figures are all equally wide, so that nothing moves when they change. The
// rounded face has no such figures of its own.
Item {
    id: root

    required property string text
    required property font font
    required property color color
    property int changeLength: 0

    readonly property list<string> parts: root.text.match(/\d|\D+/g) ?? []
    readonly property real figureWidth: {
        let widest = 0;
        for (const figure of "0123456789")
            widest = Math.max(widest, metrics.advanceWidth(figure));
        return Math.ceil(widest);
    }

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    FontMetrics {
        id: metrics
        font: root.font
    }

    Row {
        id: row

        Repeater {
            model: root.parts.length

            RollingText {
                required property int index

                text: root.parts[index] ?? ""
                font: root.font
                color: root.color
                changeLength: root.changeLength
                width: /^\d$/.test(text) ? root.figureWidth : implicitWidth
            }
        }
    }
}
