import QtQuick
import Vantrel.Theme

// The takeover's measures for a screen of a given size. Texts follow the user's size of text between
// two shares of the screen's height: large enough to be read from two metres, small enough for the
// column to fit on the smallest screen.
QtObject {
    id: root

    required property real screenWidth
    required property real screenHeight

    // Above one only on a screen that is large both ways: there everything grows alike.
    readonly property real enlargement: Math.max(1, Math.min(root.screenHeight / 1080,
                                                             root.screenWidth / 1600))
    // Below one on a screen too low for hero and spaces at their full size.
    readonly property real tightness: Math.min(1, root.screenHeight / 768)

    readonly property real margin: root.space(root.screenWidth < 1000 ? 32 : 64)
    readonly property real columnWidth: Math.min(Math.round(900 * root.enlargement),
                                                 root.screenWidth - 2 * root.margin)
    readonly property real longTitleWidth: Math.min(Math.round(1200 * root.enlargement),
                                                    root.screenWidth - 2 * root.margin)
    readonly property real hero: Math.round(160 * root.enlargement * root.tightness)

    readonly property real title: Math.max(root.text(7, 0.05, 0.06), 0.04 * root.screenHeight)
    readonly property real countdown: root.text(5, 0.037, 0.046)
    readonly property real copyLine: root.text(3, 0.024, 0.034)
    readonly property real button: root.text(3, 0.025, 0.034)
    readonly property real quietButton: root.text(2, 0.02, 0.03)

    readonly property real buttonHeight: Math.round(56 * root.enlargement)
    readonly property real buttonWidth: Math.round(200 * root.enlargement)

    function text(step: int, smallestShare: real, largestShare: real): real {
        const wished = Typography.size(step) * root.enlargement;
        // A screen on its side is no taller to the reader.
        const height = Math.min(root.screenHeight, 1.25 * root.screenWidth);
        return Math.round(Math.max(smallestShare * height, Math.min(wished, largestShare * height)));
    }

    function space(atFullSize: real): real {
        return Math.round(atFullSize * root.enlargement * root.tightness);
    }
}
