import QtQuick
import Tomcatto.Appearance

/// The one filled button of a view.
PressButton {
    id: control

    /// 40 high instead of 48, for onboarding.
    property bool compact: false

    implicitHeight: Math.max(compact ? 40 : 48, implicitContentHeight + 16)
    leftPadding: 20
    rightPadding: 20
    radius: Theme.cardRadius
    role: "primary"
    symbolSize: Math.round(17 * textScale)
    gap: 8
    fill: enabled ? colours.button : Theme.sunk
    ink: enabled ? colours.buttonText : Theme.disabled
    hoverTint: Theme.filledHover
    pressedTint: Theme.filledPressed

    Behavior on fill { Tint { duration: Theme.phaseTime } }
}
