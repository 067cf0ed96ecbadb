import QtQuick

Item {
    required property string shownText
}
