import QtQuick
import Vantrel.Theme

// The mascot on the bare ground.
Item {
    id: root

    required property string assetName
    required property real size

    implicitWidth: root.size
    implicitHeight: root.size
    Accessible.ignored: true

    Tobble {
        anchors.fill: parent
        visible: root.assetName.length > 0
        pose: root.assetName
    }
}
