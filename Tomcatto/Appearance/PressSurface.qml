import QtQuick
import Tomcatto.Appearance

/// Fill, line, hover and pressed tints and the focus ring of a control.
Rectangle {
    id: surface

    property bool hovered: false
    property bool down: false
    property bool focused: false
    property color hoverTint: Theme.hover
    property color pressedTint: Theme.pressed
    property color lineColor: "transparent"
    property color focusColor: Theme.focus

    border.width: lineColor.a > 0 ? 1 : 0
    border.color: lineColor

    Rectangle {
        anchors.fill: parent
        anchors.margins: surface.border.width
        radius: surface.radius - surface.border.width
        color: surface.hoverTint
        visible: opacity > 0
        opacity: surface.hovered && !surface.down ? 1 : 0
        Behavior on opacity { Glide { duration: Theme.hoverTime } }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: surface.border.width
        radius: surface.radius - surface.border.width
        color: surface.pressedTint
        visible: opacity > 0
        opacity: surface.down ? 1 : 0
        Behavior on opacity { Glide { duration: Theme.pressTime } }
    }
    FocusRing {
        shown: surface.focused
        parentRadius: surface.radius
        border.color: surface.focusColor
    }
}
