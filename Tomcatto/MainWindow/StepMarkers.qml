pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// Which step of how many: the present one a little larger, those to come as outlines.
Row {
    id: markers

    property int step: 0
    property int stepCount: 0

    spacing: 6
    Accessible.role: Accessible.StaticText

    Repeater {
        model: markers.stepCount

        CatMarker {
            required property int index
            readonly property bool isNow: index === markers.step
            readonly property bool isAhead: index > markers.step

            anchors.verticalCenter: parent.verticalCenter
            width: isNow ? 17 : 14
            height: width
            fill: isAhead ? "transparent" : Theme.work.solid
            outline: isAhead ? Theme.controlLine : "transparent"
        }
    }
}
