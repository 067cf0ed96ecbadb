import QtQuick
import Tomcatto.Appearance

/// A button without a box, in the text colour of the phase.
PressButton {
    id: control

    property string phase: "work"
    readonly property var colours: Theme.phase(phase)

    leftPadding: 8
    rightPadding: 8
    ink: enabled ? colours.text : Theme.disabled

    contentItem: ButtonLabel {
        symbol: control.symbol
        text: control.text
        color: control.ink
        font: Theme.font("control", control.textScale)
        symbolSize: Math.round(16 * control.textScale)
        gap: 6
    }
}
