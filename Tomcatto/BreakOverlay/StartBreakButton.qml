import QtQuick
import Tomcatto.BreakOverlay

/// Starts a break that waits.
OverlayButton {
    objectName: "break.start.button"
    horizontalPadding: Math.round(38 * unit)
    radius: Math.round(16 * unit)
    lineColor: "transparent"
    ink: OverlayStyle.buttonInk
    hoverTint: Qt.rgba(1, 1, 1, 0.22)
    pressedTint: Qt.rgba(0, 0, 0, 0.12)
    symbol: "play.fill"
    symbolSize: Math.round(20 * unit)
}
