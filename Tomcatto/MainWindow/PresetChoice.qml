import QtQuick
import Tomcatto.Appearance

/// One rhythm to choose. Its text is the spoken name.
PressButton {
    id: choice

    property string title
    property string help
    property bool selected: false

    radius: Theme.cardRadius
    fill: selected ? Theme.work.wash : Theme.card
    lineColor: selected ? "transparent" : Theme.line
    contentItem: null
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.description: help

    Rectangle {
        anchors.fill: parent
        visible: choice.selected
        radius: choice.radius
        color: "transparent"
        border.width: 2
        border.color: Theme.work.solid
    }
}
