import QtQuick
import Tomcatto.Appearance

/// An ordinary button, 32 high. Prominent ones are filled and belong in dialogs only.
PressButton {
    id: control

    property bool prominent: false
    property string phase: "work"
    readonly property var colours: Theme.phase(phase)

    implicitHeight: Math.max(32, implicitContentHeight + 14)
    leftPadding: 12
    rightPadding: 12
    fill: !enabled ? Theme.sunk : prominent ? colours.button : Theme.card
    lineColor: enabled && !prominent ? Theme.line : "transparent"
    ink: !enabled ? Theme.disabled : prominent ? colours.buttonText : Theme.ink
    hoverTint: prominent ? Theme.filledHover : Theme.hover
    pressedTint: prominent ? Theme.filledPressed : Theme.pressed

    contentItem: ButtonLabel {
        symbol: control.symbol
        text: control.text
        color: control.ink
        font: Theme.font(control.prominent ? "section" : "control", control.textScale)
        symbolSize: Math.round(16 * control.textScale)
        gap: 7
    }
}
