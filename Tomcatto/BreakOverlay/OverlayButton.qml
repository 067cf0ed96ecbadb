import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// A button of the overlay. It takes no keyboard focus while the view is guarded.
PressButton {
    id: button

    required property real unit
    property bool isGuarded: false
    property bool showsText: true
    property string help

    implicitHeight: Math.max(44, Math.round(56 * unit))
    implicitWidth: Math.max(implicitHeight, implicitContentWidth + leftPadding + rightPadding)
    horizontalPadding: showsText ? Math.round(24 * unit) : 0
    verticalPadding: 0
    radius: height / 2
    fill: OverlayStyle.plate(0.8)
    lineColor: OverlayStyle.line
    ink: OverlayStyle.ink
    label: showsText ? text : ""
    labelFont: OverlayStyle.font(18 * unit, Font.DemiBold)
    symbolSize: Math.round(24 * unit)
    gap: Math.round(12 * unit)
    hoverTint: OverlayStyle.hover
    pressedTint: OverlayStyle.pressed
    focusColor: OverlayStyle.ink
    focusPolicy: isGuarded ? Qt.NoFocus : Qt.StrongFocus
    Accessible.description: help
}
