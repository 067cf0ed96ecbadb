pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// The rounds of a set as cats: done, now, to come. More than six rounds stand as a text instead.
Item {
    id: markers

    property int total: 4
    property int done: 0
    /// Whether the round after the done ones is under way.
    property bool current: false
    property string phase: "work"
    property real markerSize: 15
    property real gap: 3
    /// Shown in place of more than six markers, for example "7 / 12".
    property string compactText
    property string name
    readonly property bool compact: total > 6
    readonly property var colours: Theme.phase(phase)

    implicitWidth: compact ? figure.implicitWidth : row.implicitWidth
    implicitHeight: compact ? figure.implicitHeight : markerSize
    Accessible.role: Accessible.StaticText
    Accessible.name: name

    Row {
        id: row

        visible: !markers.compact
        spacing: markers.gap

        Repeater {
            model: markers.compact ? 0 : markers.total

            CatMarker {
                required property int index
                readonly property bool isDone: index < markers.done
                readonly property bool isNow: markers.current && index === markers.done

                width: markers.markerSize
                height: markers.markerSize
                fill: isDone ? markers.colours.solid : isNow ? markers.colours.wash : "transparent"
                outline: isDone ? "transparent" : isNow ? markers.colours.solid : Theme.controlLine
            }
        }
    }
    QuietText {
        id: figure

        visible: markers.compact
        text: markers.compactText
        role: "primary"
        textScale: 1
        wrapMode: Text.NoWrap
    }
}
