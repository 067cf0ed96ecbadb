import QtQuick
import Tomcatto.Appearance

/// A button without a box, in the text colour of the phase.
PressButton {
    id: control

    leftPadding: 8
    rightPadding: 8
    gap: 6
    ink: enabled ? colours.text : Theme.disabled
}
