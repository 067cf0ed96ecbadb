pragma Singleton

import QtQuick
import Tomcatto.Appearance

/// The overlay's colours, which are dark whatever the theme is.
QtObject {
    readonly property color ground: "#221B18"
    readonly property color logo: "#2C2420"
    readonly property color ink: "#F5F5F7"
    readonly property color buttonInk: "#221B18"
    readonly property color line: Theme.highContrast ? "#8B7B70" : Qt.rgba(1, 1, 1, 0.16)
    readonly property color track: Qt.rgba(1, 1, 1, 0.26)
    readonly property color keyFill: Qt.rgba(1, 1, 1, 0.18)
    readonly property color keyLine: Qt.rgba(1, 1, 1, 0.34)
    readonly property color hover: Qt.rgba(1, 1, 1, 0.08)
    readonly property color pressed: Qt.rgba(1, 1, 1, 0.16)

    /// The ground's colour at a share of 0 to 1, which darkens what is behind.
    function scrim(share: real): color {
        return Qt.rgba(0x22 / 255, 0x1B / 255, 0x18 / 255, share)
    }

    /// The same under words and symbols; solid in high contrast.
    function plate(share: real): color {
        return scrim(Theme.highContrast ? 1 : share)
    }

    /// The one bright colour of a break, by its name.
    function solid(phase: string): color {
        return phase === "longBreak" ? "#9FD8B4" : "#ADC6FF"
    }

    /// A font of a role at the overlay's scale.
    function font(pixelSize: real, weight: int): font {
        return Theme.sizedFont(Math.round(pixelSize), weight, 0)
    }
}
