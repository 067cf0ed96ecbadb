pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// One set of phases drawn to scale.
Item {
    id: bar

    /// Phase and seconds of each.
    property var segments: []
    property real gap: 3
    property real radius: 4
    readonly property real total: segments.reduce((sum, each) => sum + each.seconds, 0)
    readonly property real room: width - gap * Math.max(0, segments.length - 1)

    implicitWidth: 198
    implicitHeight: 14

    Row {
        spacing: bar.gap

        Repeater {
            model: bar.segments.length

            Rectangle {
                required property int index
                readonly property var segment: bar.segments[index] ?? ({ "phase": "work", "seconds": 0 })

                width: bar.total > 0 ? Math.max(1, bar.room * segment.seconds / bar.total) : 0
                height: bar.height
                radius: Math.min(bar.radius, width / 2)
                color: Theme.phase(segment.phase).solid
            }
        }
    }
}
