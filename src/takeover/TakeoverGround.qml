import QtQuick
import Vantrel.Takeover
import Vantrel.Theme

// What every face of the takeover stands on.
Rectangle {
    id: root

    required property TakeoverMetrics metrics

    color: ThemePaletteKey.palette.surfaceBackground

    PawField {
        anchors.fill: parent
        opacity: 0.5
        color: root.ThemePaletteKey.palette.dotStroke
        pawSize: Math.round(26 * root.metrics.enlargement)
        clearing: Qt.size(1.35 * root.metrics.columnWidth, 1.1 * root.height)
    }
}
