import Tomcatto.BreakOverlay

/// Makes the break longer.
OverlayButton {
    objectName: "break.extend.button"
}
