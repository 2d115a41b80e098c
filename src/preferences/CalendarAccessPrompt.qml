import QtQuick
import Vantrel.Theme

// What stands in place of the calendars while none may be read.
Card {
    id: root

    required property bool canGrant

    signal granted()

    Accessible.name: heading.text

    TobbleHero {
        anchors.horizontalCenter: parent.horizontalCenter
        assetName: "tobble-curious-calendar"
        size: 140
    }

    Text {
        id: heading
        width: parent.width
        text: qsTr("Tobble can't see your calendars.")
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        color: root.ThemePaletteKey.palette.primaryText
        font: Typography.rounded(Typography.size(1), Font.Bold)
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Explanation {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: root.canGrant ? qsTr("They are read on this computer only, to know when your meetings start. Nothing is sent anywhere.")
                            : qsTr("A policy of this computer bars access to the calendars. Whoever looks after it can lift it.")
    }

    FilledButton {
        objectName: "grantAccess"
        anchors.horizontalCenter: parent.horizontalCenter
        text: qsTr("Grant access")
        enabled: root.canGrant
        onClicked: root.granted()
    }
}
