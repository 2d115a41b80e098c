import QtQuick
import Vantrel.Onboarding

OnboardingPage {
    id: root

    title: qsTr("Pick a theme")
    body: qsTr("Theme is your identity — it stays the same all day. The five presets honor the same brand; pick the one that feels like the workspace you want.")
    primaryText: qsTr("Continue")
    onPrimaryChosen: root.viewModel.acknowledge()

    Column {
        id: list
        width: parent.width
        spacing: 8

        Repeater {
            id: rows
            model: root.viewModel.themes

            // The outer ids are seen from here in any case; to say so to qmllint takes Qt 6.5.
            // qmllint disable unqualified
            ThemeRow {
                objectName: "theme" + index
                width: list.width
                isSelected: root.viewModel.selectedTheme === index
                onChosen: list.pick(index)
                onMoved: step => list.pick(index + step)
            }
            // qmllint enable unqualified
        }

        function pick(place: int) {
            if (place < 0 || place >= rows.count)
                return;
            root.viewModel.selectTheme(place);
            rows.itemAt(place).forceActiveFocus();
        }
    }
}
