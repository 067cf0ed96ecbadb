import QtQuick
import Tomcatto.Appearance

/// The look of a switch, without behaviour: track, knob and focus ring. Disabled it is 45 % of itself over a card.
Rectangle {
    id: track

    property bool checked: false
    property bool focused: false
    property string phase: "work"
    readonly property color plainColor: checked ? Theme.phase(phase).button : Theme.switchOff
    readonly property color knobColor: !Theme.dark ? "#FFFFFF" : checked ? "#221B18" : "#F5F5F7"

    function faded(plain: color): color {
        return enabled ? plain : Theme.blend(plain, Theme.card, 0.45)
    }

    implicitWidth: 40
    implicitHeight: 24
    radius: 12
    color: faded(plainColor)
    border.color: Theme.trackEdge
    border.width: Theme.highContrast ? 1 : 0

    Behavior on color { Tint { duration: Theme.switchTime } }

    Rectangle {
        x: track.checked ? track.width - width - 3 : 3
        y: 3
        width: 18
        height: 18
        radius: 9
        color: track.faded(track.knobColor)

        Behavior on x { Glide { duration: Theme.switchTime } }
    }
    FocusRing {
        shown: track.focused
        parentRadius: track.radius
    }
}
