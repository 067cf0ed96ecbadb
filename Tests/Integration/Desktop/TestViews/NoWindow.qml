import QtQuick

Item {
    required property var strings
}
