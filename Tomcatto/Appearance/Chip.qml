import QtQuick
import Tomcatto.Appearance

/// A small action in the wash of the phase: 28 high, but 32 to hit.
PressButton {
    id: control

    implicitHeight: 32
    topInset: 2
    bottomInset: 2
    leftPadding: 12
    rightPadding: 12
    radius: (height - topInset - bottomInset) / 2
    textScale: 1
    role: "chip"
    symbolSize: 14
    gap: 5
    fill: enabled ? colours.wash : "transparent"
    lineColor: Theme.trackEdge
    ink: enabled ? colours.text : Theme.disabled
}
