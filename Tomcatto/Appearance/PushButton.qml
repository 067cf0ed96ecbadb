import QtQuick
import Tomcatto.Appearance

/// An ordinary button, 32 high. Prominent ones are filled and belong in dialogs only.
PressButton {
    id: control

    property bool prominent: false

    implicitHeight: Math.max(32, implicitContentHeight + 14)
    leftPadding: 12
    rightPadding: 12
    role: prominent ? "section" : "control"
    fill: !enabled ? Theme.sunk : prominent ? colours.button : Theme.card
    lineColor: enabled && !prominent ? Theme.line : "transparent"
    ink: !enabled ? Theme.disabled : prominent ? colours.buttonText : Theme.ink
    hoverTint: prominent ? Theme.filledHover : Theme.hover
    pressedTint: prominent ? Theme.filledPressed : Theme.pressed
}
