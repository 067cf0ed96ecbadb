import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// What is left of the break, shrinking from the right.
Rectangle {
    id: bar

    required property real progress
    property color solid
    property string name

    radius: height / 2
    color: OverlayStyle.track
    border.color: Theme.highContrast ? OverlayStyle.line : "transparent"
    Accessible.role: Accessible.ProgressBar
    Accessible.name: name

    Rectangle {
        width: bar.width * bar.progress
        height: bar.height
        radius: Math.min(width, height) / 2
        color: bar.solid
    }
}
