import QtQuick
import Tomcatto.Appearance

/// The look of a switch, without behaviour: track, knob and focus ring.
Rectangle {
    id: track

    property bool checked: false
    property bool focused: false
    property string phase: "work"
    readonly property color plainColor: checked ? Theme.phase(phase).button : Theme.switchOff

    implicitWidth: 40
    implicitHeight: 24
    radius: 12
    color: enabled ? plainColor : Theme.blend(plainColor, Theme.paper, 0.5)
    border.color: Theme.trackEdge
    border.width: Theme.highContrast ? 1 : 0

    Behavior on color { Tint { duration: Theme.switchTime } }

    Rectangle {
        x: track.checked ? track.width - width - 3 : 3
        y: 3
        width: 18
        height: 18
        radius: 9
        color: !Theme.dark ? "#FFFFFF" : track.checked ? "#221B18" : "#F5F5F7"

        Behavior on x { Glide { duration: Theme.switchTime } }
    }
    FocusRing {
        shown: track.focused
        parentRadius: track.radius
    }
}
