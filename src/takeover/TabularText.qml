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
    readonly property real figureWidth: Math.ceil(Typography.figureAdvance(root.font))

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Row {
        id: row

        Repeater {
            model: root.parts.length

            // The outer id is seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            RollingText {
                required property int index

                text: root.parts[index] ?? ""
                font: root.font
                color: root.color
                changeLength: root.changeLength
                width: /^\d$/.test(text) ? root.figureWidth
                                          : Math.ceil(Typography.advance(root.font, text))
            }
            // qmllint enable unqualified
        }
    }
}
