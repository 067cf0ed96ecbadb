import QtQuick
import Tomcatto.Appearance

/// A small action in the wash of the phase: 28 high, but 32 to hit.
PressButton {
    id: control

    property string phase: "work"
    readonly property var colours: Theme.phase(phase)

    implicitHeight: 32
    topInset: 2
    bottomInset: 2
    leftPadding: 12
    rightPadding: 12
    radius: (height - topInset - bottomInset) / 2
    textScale: 1
    fill: enabled ? colours.wash : "transparent"
    lineColor: Theme.trackEdge
    ink: enabled ? colours.text : Theme.disabled

    contentItem: ButtonLabel {
        symbol: control.symbol
        text: control.text
        color: control.ink
        font: Theme.font("chip", control.textScale)
        symbolSize: 14
        gap: 5
    }
}
