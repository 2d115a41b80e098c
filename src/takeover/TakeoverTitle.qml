import QtQuick
import Vantrel.Takeover
import Vantrel.Theme

// The largest text of a takeover. What does not fit even at its smallest is cut at the end of the
// last line; whoever reads with a screen reader hears all of it.
Item {
    id: root

    required property string text
    required property real fullSize
    // For a long title; it may stand out of the item to both sides.
    required property real widest
    readonly property font fullFont: Typography.rounded(root.fullSize, Font.Bold)
    readonly property titleFit fit: TitleFitter.fit(root.text, root.fullFont,
                                                    Math.round(0.32 * root.fullSize), root.width,
                                                    root.widest)
    readonly property alias lineCount: label.lineCount
    readonly property alias isCut: label.truncated

    implicitHeight: Math.ceil(label.implicitHeight)
    visible: root.text.length > 0
    Accessible.role: Accessible.Heading
    Accessible.name: root.text

    Text {
        id: label
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.ceil(root.fit.width)
        text: root.text
        textFormat: Text.PlainText
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(root.fit.pixelSize, Font.Bold)
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
