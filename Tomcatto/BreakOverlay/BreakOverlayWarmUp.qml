import Tomcatto.BreakOverlay

/// Never shown: it keeps loaded what the next overlay needs, the player included.
BreakOverlayView {
    isWarmUp: true
}
