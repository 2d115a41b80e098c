import QtQuick
import Vantrel.Theme

// The largest text of a takeover. It wraps to two lines at its full size, then shrinks while it
// takes up to four, and is cut at the end of the fourth when even the smallest size is too large.
Item {
    id: root

    required property string text
    required property real fullSize
    readonly property alias lineCount: label.lineCount
    readonly property alias isCut: label.truncated

    implicitHeight: Math.ceil(label.contentHeight)
    visible: root.text.length > 0
    Accessible.role: Accessible.Heading
    Accessible.name: root.text

    Text {
        id: label
        width: root.width
        // Room for two lines at the full size, whatever script they are in.
        height: Math.round(2.8 * root.fullSize)
        text: root.text
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(root.fullSize, Font.Bold)
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        fontSizeMode: Text.Fit
        minimumPixelSize: Math.round(0.34 * root.fullSize)
        maximumLineCount: 4
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
