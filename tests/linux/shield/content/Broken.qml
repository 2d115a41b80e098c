import QtQuick

Rectangle {
    required property string title
    property int missing: doesNotExist

    NoSuchElement {}
}
