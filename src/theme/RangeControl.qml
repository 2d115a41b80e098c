import QtQuick

// What a slider and a stepper have in common: a number that goes in steps between two bounds. It
// shows the setting that it is given and asks for another one with `moved`.
Item {
    id: root

    required property string title
    required property string valueText
    required property real setting
    required property real minimumValue
    required property real maximumValue
    required property real stepSize

    // Written to by screen readers, hence apart from the setting.
    property real value: root.setting

    signal moved(real value)

    activeFocusOnTab: true
    Accessible.name: root.title
    Accessible.description: root.valueText
    Accessible.focusable: true
    Accessible.onIncreaseAction: root.step(1)
    Accessible.onDecreaseAction: root.step(-1)
    Keys.onUpPressed: root.step(1)
    Keys.onDownPressed: root.step(-1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            root.ask(event.key === Qt.Key_Home ? root.minimumValue : root.maximumValue);
    }
    onValueChanged: {
        if (root.value !== root.setting) {
            const wanted = root.value;
            root.value = Qt.binding(() => root.setting);
            root.ask(wanted);
        }
    }

    // A value between two steps goes to the next one in that direction.
    function step(count: int) {
        const steps = (root.setting - root.minimumValue) / root.stepSize;
        const from = count > 0 ? Math.floor(steps) : Math.ceil(steps);
        root.ask(root.minimumValue + (from + count) * root.stepSize);
    }

    function ask(wanted: real) {
        const steps = Math.round((wanted - root.minimumValue) / root.stepSize);
        const nearest = root.minimumValue + steps * root.stepSize;
        const bounded = Math.max(root.minimumValue, Math.min(nearest, root.maximumValue));
        if (bounded !== root.setting)
            root.moved(bounded);
    }
}
