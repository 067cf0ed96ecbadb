import QtQuick
import Tomcatto.Appearance

/// The eared circle. Its ring is `width` wide; the ears stand out a little above its top edge. One element to a screen
/// reader. Children are placed inside, in the dial's coordinates.
Item {
    id: dial

    /// "idle", "work", "shortBreak", "longBreak" or "overtime".
    property string phase: "idle"
    /// Elapsed part of the plan, 0 to 1.
    property real progress: 0
    property bool paused: false
    /// A break that waits for its start: the track alone.
    property bool pending: false
    /// What a screen reader says, for example "Focus, 16 minutes 12 seconds left".
    property string name

    readonly property var colours: Theme.phase(phase)
    readonly property bool atRest: phase === "shortBreak" || phase === "longBreak"
    readonly property real shownProgress: pending || phase === "idle" ? 0 : phase === "overtime" ? 1 : Math.max(0, Math.min(1, progress))
    // The last ear means nearly done. A hair of tolerance, so that 57 of 360 counts as reached.
    readonly property real shownAngle: shownProgress * 360 + 1e-6
    readonly property bool rightEarLit: shownAngle >= 57
    readonly property bool leftEarLit: shownAngle >= 343

    /// Ticks step; what is not a tick (start, extension, skip) glides.
    function moveArc() {
        const jump = shownProgress - painter.progress
        arcMotion.stop()
        if (Theme.phaseTime === 0 || !dial.visible || (jump >= 0 && jump < 0.03)) {
            painter.progress = shownProgress
        } else {
            arcMotion.to = shownProgress
            arcMotion.start()
        }
    }

    /// To be called when the name says another thing than before.
    function tellName() {
        spoken.tell()
    }

    implicitWidth: 200
    implicitHeight: 200
    onShownProgressChanged: moveArc()
    Component.onCompleted: painter.progress = shownProgress

    SpokenText {
        id: spoken

        anchors.fill: parent
        name: dial.name
        Accessible.role: Accessible.StaticText
        Accessible.ignored: dial.name.length === 0
    }
    NumberAnimation {
        id: arcMotion

        target: painter
        property: "progress"
        duration: Theme.phaseTime
        easing.type: Easing.OutCubic
    }

    DialPainter {
        id: painter

        y: -headroom
        width: dial.width
        height: dial.width + headroom
        track: dial.colours.track
        arc: dial.paused ? Theme.pausedArc : dial.colours.solid
        disc: Theme.card
        edge: Theme.trackEdge
        rightEar: dial.rightEarLit ? 1 : 0
        leftEar: dial.leftEarLit ? 1 : 0
        rest: dial.atRest ? 1 : 0

        Behavior on track { Tint { duration: Theme.phaseTime } }
        Behavior on arc { Tint { duration: Theme.phaseTime } }
        Behavior on rightEar { Glide { duration: Theme.phaseTime } }
        Behavior on leftEar { Glide { duration: Theme.phaseTime } }
        Behavior on rest { Glide { duration: Theme.phaseTime } }
    }
}
