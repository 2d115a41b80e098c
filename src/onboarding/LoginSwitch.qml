import QtQuick
import Vantrel.Onboarding
import Vantrel.Theme

// The switch for starting at login, and why it could not be thrown.
Card {
    id: root

    required property OnboardingViewModel viewModel

    Item {
        width: parent.width
        height: Math.max(36, row.height)

        Symbol {
            id: symbol
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            name: "power"
            color: root.ThemePaletteKey.palette.accent
        }

        ToggleRow {
            id: row
            objectName: "launchAtLogin"
            anchors.left: symbol.right
            anchors.leftMargin: 12
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            title: qsTr("Launch Vantrel at login")
            isOn: root.viewModel.isLaunchedAtLogin
            onFlipped: isOn => root.viewModel.setLaunchAtLogin(isOn)
        }
    }

    SymbolLine {
        objectName: "error"
        width: parent.width
        visible: root.viewModel.launchAtLoginError.length > 0
        symbol: "exclamationmark.triangle.fill"
        text: root.viewModel.launchAtLoginError
    }
}
