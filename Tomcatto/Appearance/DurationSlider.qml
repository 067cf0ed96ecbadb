import QtQuick
import Tomcatto.Appearance

/// Minutes on a square-root scale, so that the short lengths, which are chosen most, have the most room. Arrows move by
/// one minute, page keys by five. The thumb's centre runs over the whole width and stands out at both ends.
Item {
    id: control

    property int value: 25
    property int minimumValue: 1
    property int maximumValue: 180
    readonly property int stepSize: 1
    property string phase: "work"
    property string name
    property string valueText
    property bool showFocus: activeFocus && byKey
    property bool byKey: false
    readonly property var colours: Theme.phase(phase)
    readonly property real thumbX: width * positionOf(value)

    /// The user wants another value, which is the caller's to set.
    signal moved(int wanted)

    /// 0 to 1 from the left.
    function positionOf(minutes: int): real {
        return Math.sqrt((minutes - minimumValue) / (maximumValue - minimumValue))
    }

    /// The whole minutes nearest to a position.
    function minutesAt(position: real): int {
        const share = Math.max(0, Math.min(1, position))
        return Math.round(minimumValue + share * share * (maximumValue - minimumValue))
    }

    function change(minutes: int) {
        const bounded = Math.max(minimumValue, Math.min(maximumValue, minutes))
        if (bounded !== value)
            moved(bounded)
    }

    function take(key: int): bool {
        switch (key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            change(value - 1)
            return true
        case Qt.Key_Right:
        case Qt.Key_Up:
            change(value + 1)
            return true
        case Qt.Key_PageDown:
            change(value - 5)
            return true
        case Qt.Key_PageUp:
            change(value + 5)
            return true
        case Qt.Key_Home:
            change(minimumValue)
            return true
        case Qt.Key_End:
            change(maximumValue)
            return true
        }
        return false
    }

    implicitWidth: 220
    implicitHeight: 32
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: name
    Accessible.description: valueText
    Accessible.focusable: true
    Accessible.onIncreaseAction: change(value + 1)
    Accessible.onDecreaseAction: change(value - 1)
    onActiveFocusChanged: if (!activeFocus) byKey = false
    Keys.onPressed: event => {
        byKey = true
        event.accepted = take(event.key)
    }
    Keys.onReleased: byKey = true

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: 4
        radius: 2
        color: control.enabled ? control.colours.track : Theme.blend(control.colours.track, Theme.paper, 0.5)
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.trackEdge
    }
    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: control.thumbX
        height: 4
        radius: 2
        color: thumb.border.color
    }
    Rectangle {
        id: thumb

        x: control.thumbX - width / 2
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        radius: 10
        color: mouse.containsMouse || mouse.pressed ? control.colours.wash : Theme.card
        border.width: 2
        border.color: control.enabled ? control.colours.solid : Theme.blend(control.colours.solid, Theme.paper, 0.5)

        FocusRing {
            shown: control.showFocus
            parentRadius: thumb.radius
        }
    }
    MouseArea {
        id: mouse

        function follow() {
            control.change(control.minutesAt((mouseX - 10) / control.width))
        }

        anchors.fill: parent
        anchors.leftMargin: -10
        anchors.rightMargin: -10
        hoverEnabled: true
        preventStealing: true
        onPressed: {
            control.byKey = false
            control.forceActiveFocus(Qt.MouseFocusReason)
            follow()
        }
        onPositionChanged: if (pressed) follow()
    }
}
