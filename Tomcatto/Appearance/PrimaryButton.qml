import QtQuick
import Tomcatto.Appearance

/// The one filled button of a view.
PressButton {
    id: control

    property string phase: "work"
    /// 40 high instead of 48, for onboarding.
    property bool compact: false
    readonly property var colours: Theme.phase(phase)

    implicitHeight: Math.max(compact ? 40 : 48, implicitContentHeight + 16)
    leftPadding: 20
    rightPadding: 20
    radius: Theme.cardRadius
    fill: enabled ? colours.button : Theme.sunk
    ink: enabled ? colours.buttonText : Theme.disabled
    hoverTint: Theme.filledHover
    pressedTint: Theme.filledPressed

    contentItem: ButtonLabel {
        symbol: control.symbol
        text: control.text
        color: control.ink
        font: Theme.font("primary", control.textScale)
        symbolSize: Math.round(17 * control.textScale)
        gap: 8
    }

    Behavior on fill {
        ColorAnimation {
            duration: Theme.phaseTime
            easing.type: Easing.OutCubic
        }
    }
}
