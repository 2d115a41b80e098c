import QtQuick

// A line that tells what something is, or the whole of a text that was cut; near it, within the
// window.
Item {
    id: root

    required property Item target
    required property string text
    required property bool isWanted

    readonly property Item stage: root.target.Window.contentItem

    onIsWantedChanged: root.follow()
    onTextChanged: root.follow()

    Loader { id: loader }

    function follow() {
        if (root.isWanted && root.text.length > 0 && root.stage !== null)
            loader.setSource("HintBubble.qml", { stage: root.stage, target: root.target, text: root.text });
        else
            loader.source = "";
    }
}
