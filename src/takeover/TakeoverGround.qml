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
        opacity: ThemePaletteKey.palette.isDark ? 0.25 : 0.4
        color: root.ThemePaletteKey.palette.dotStroke
        pawSize: root.metrics.space(30)
        // On a narrow screen the corners alone are left.
        clearing: Qt.size(Math.min(1.35 * root.metrics.columnWidth, 1.05 * root.width),
                          1.05 * root.height)
    }
}
