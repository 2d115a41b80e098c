import QtQuick
import Vantrel.Preferences
import Vantrel.Theme

// A time of day: to be written, or to be moved by a quarter of an hour.
Row {
    id: root

    required property string title
    required property TimeSetting time

    spacing: 8

    CardTitle {
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(implicitWidth, Math.round(3 * Typography.size(0)))
        font: Typography.reading(Typography.size(0), Font.Medium)
        text: root.title
    }

    TextField {
        id: field
        objectName: "written"
        anchors.verticalCenter: parent.verticalCenter
        width: Math.round(7 * Typography.size(0))
        title: root.title
        setting: root.time.text
        Keys.onUpPressed: quarters.step(1)
        Keys.onDownPressed: quarters.step(-1)
        onFinished: text => {
            if (text !== field.setting)
                root.time.assignText(text);
            field.restore();
        }
    }

    Stepper {
        id: quarters
        objectName: "quarters"
        anchors.verticalCenter: parent.verticalCenter
        title: root.title
        valueText: root.time.text
        setting: root.time.value
        minimumValue: 0
        maximumValue: 1439
        stepSize: 15
        onMoved: value => root.time.assign(value)
    }
}
