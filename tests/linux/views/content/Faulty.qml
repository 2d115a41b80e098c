import QtQuick

Item {
    NoSuchElement {}
}
