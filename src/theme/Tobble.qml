import QtQuick
import Vantrel.Theme

// The mascot in one of his poses, as large as fits into the item.
Item {
    id: root

    /// A file of art/, without its ending: "tobble-rescue", say; empty for none.
    required property string pose

    Accessible.ignored: true

    Image {
        anchors.fill: parent
        source: root.pose.length === 0 ? ""
                : "art/" + root.pose + (root.ThemePaletteKey.palette.isDark ? "-rimmed.svg" : ".svg")
        sourceSize.width: root.width
        sourceSize.height: root.height
        fillMode: Image.PreserveAspectFit
    }
}
