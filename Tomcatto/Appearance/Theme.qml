pragma Singleton

import QtQuick
import Tomcatto.Appearance

/// Colours, type, measures and times by role. Everything follows `AppearanceSettings` live.
QtObject {
    id: theme

    component PhaseColours: QtObject {
        /// Arc, dot, bar.
        property color solid
        /// Fill of the one filled button, and the text on it.
        property color button
        property color buttonText: AppearanceSettings.dark ? "#221B18" : "#FFFFFF"
        property color text
        property color wash
        property color track
    }

    readonly property bool dark: AppearanceSettings.dark
    readonly property bool reducedMotion: AppearanceSettings.reducedMotion
    readonly property bool highContrast: AppearanceSettings.highContrast
    readonly property real textScale: AppearanceSettings.textScale

    // Surfaces and inks.
    readonly property color paper: dark ? "#221B18" : "#FBF7F2"
    readonly property color sunk: dark ? "#1B1512" : "#F4EDE5"
    readonly property color card: dark ? "#2C2420" : "#FFFFFF"
    readonly property color raised: dark ? "#3A302B" : "#FFFFFF"
    readonly property color line: highContrast ? controlLine : dark ? "#3D332D" : "#EADFD4"
    readonly property color ink: dark ? "#F5F5F7" : "#1D1D1F"
    readonly property color ink2: dark ? "#C0B3AA" : "#6B5E55"
    /// Decoration only, never text.
    readonly property color ink3: dark ? "#94867C" : "#86776C"
    readonly property color disabled: dark ? "#6E6159" : "#B5A89D"
    readonly property color controlLine: dark ? "#8B7B70" : "#95836F"
    readonly property color switchOff: dark ? "#7C6D63" : "#9A8A7D"
    readonly property color hover: dark ? Qt.rgba(1, 1, 1, 0.06) : Qt.rgba(0x78 / 255, 0x48 / 255, 0x24 / 255, 0.08)
    readonly property color pressed: dark ? Qt.rgba(1, 1, 1, 0.11) : Qt.rgba(0x78 / 255, 0x48 / 255, 0x24 / 255, 0.16)
    readonly property color selectedNav: dark ? "#4A3527" : "#FADFCC"
    readonly property color danger: dark ? "#FFAB95" : "#B3341C"
    readonly property color focus: dark ? "#ADC6FF" : "#3D6FD6"
    readonly property color pausedArc: dark ? "#A6988E" : "#7A6C61"
    /// Laid over a filled button.
    readonly property color filledHover: dark ? Qt.rgba(1, 1, 1, 0.22) : Qt.rgba(0, 0, 0, 0.08)
    readonly property color filledPressed: dark ? Qt.rgba(0, 0, 0, 0.12) : Qt.rgba(0, 0, 0, 0.18)
    /// One pixel around tracks in high contrast, else nothing.
    readonly property color trackEdge: highContrast ? controlLine : "transparent"
    /// By level, 0 (no phase) to 4 (the goal).
    readonly property list<color> heat: dark ? ["#3A302B", "#5A4435", "#8B664B", "#C48E65", "#FFB780"]
                                             : ["#F1EAE2", "#F4DCCF", "#E4B398", "#D3865A", "#B34E15"]

    readonly property PhaseColours work: PhaseColours {
        solid: theme.dark ? "#FFB780" : "#C2571A"
        button: theme.dark ? "#FFB780" : "#B34E15"
        text: theme.dark ? "#FFB780" : "#A84A12"
        wash: theme.highContrast ? theme.card : theme.dark ? "#39291F" : "#FDEFE5"
        track: theme.dark ? "#644A37" : "#F7CFB7"
    }
    readonly property PhaseColours shortBreak: PhaseColours {
        solid: theme.dark ? "#ADC6FF" : "#3D6FD6"
        button: theme.dark ? "#ADC6FF" : "#3A69CC"
        text: theme.dark ? "#ADC6FF" : "#2F5FC4"
        wash: theme.highContrast ? theme.card : theme.dark ? "#2C2D36" : "#EAF0FC"
        track: theme.dark ? "#494B59" : "#CCD5EB"
    }
    readonly property PhaseColours longBreak: PhaseColours {
        solid: theme.dark ? "#9FD8B4" : "#2E6B47"
        button: theme.dark ? "#9FD8B4" : "#2E6B47"
        text: theme.dark ? "#9FD8B4" : "#2E6B47"
        wash: theme.highContrast ? theme.card : theme.dark ? "#2A322B" : "#E6F1EA"
        track: theme.dark ? "#455044" : "#C8D4C7"
    }
    readonly property PhaseColours overtime: PhaseColours {
        solid: theme.dark ? "#F5C451" : "#D6A01E"
        button: theme.dark ? "#F5C451" : "#D6A01E"
        buttonText: "#221B18"
        text: theme.dark ? "#F5C451" : "#7D5500"
        wash: theme.highContrast ? theme.card : theme.dark ? "#3A2F1C" : "#FBF2DC"
        track: theme.dark ? "#6A542B" : "#EDD6A1"
    }

    /// Colours of "idle", "work", "shortBreak", "longBreak" or "overtime"; any other name gets those of work.
    function phase(name: string): PhaseColours {
        switch (name) {
        case "shortBreak":
            return shortBreak
        case "longBreak":
            return longBreak
        case "overtime":
            return overtime
        default:
            return work
        }
    }

    /// The opaque colour of `share` (0 to 1) of the top colour over the bottom one.
    function blend(top: color, bottom: color, share: real): color {
        const part = (upper, lower) => upper * share + lower * (1 - share)
        return Qt.rgba(part(top.r, bottom.r), part(top.g, bottom.g), part(top.b, bottom.b), 1)
    }

    // Role: size, line height, weight, letter spacing; all in pixels at scale 1.
    readonly property var typeRoles: ({
            "dialTime": [50, 58, Font.DemiBold, -1],
            "dialTimeLong": [44, 58, Font.DemiBold, -1],
            "figure": [26, 32, Font.DemiBold, 0],
            "figureUnit": [14, 32, Font.Medium, 0],
            "figureSmall": [20, 24, Font.DemiBold, -0.2],
            "figureUnitSmall": [12, 24, Font.Medium, 0],
            "onboardingTitle": [26, 32, Font.Bold, -0.4],
            "pageTitle": [24, 30, Font.Bold, -0.4],
            "primary": [15, 20, Font.DemiBold, 0],
            "body": [14, 20, Font.Normal, 0],
            "rowTitle": [14, 20, Font.Medium, 0],
            "bodyStrong": [14, 20, Font.DemiBold, 0],
            "control": [13, 18, Font.Medium, 0],
            "section": [13, 18, Font.DemiBold, 0],
            "caption": [12, 16, Font.Normal, 0],
            "captionMedium": [12, 16, Font.Medium, 0],
            "chip": [12, 16, Font.DemiBold, 0],
            "micro": [11, 14, Font.Normal, 0]
        })

    /// Font of a role. @param scale factor on the size, usually `textScale` in the window and 1 in the panel.
    function font(role: string, scale: real): font {
        const [size, , weight, spacing] = typeRoles[role]
        return sizedFont(Math.round(size * scale), weight, spacing * scale)
    }

    /// A font of our family in any size. @param pixelSize whole pixels.
    function sizedFont(pixelSize: int, weight: int, spacing: real): font {
        return Qt.font({
            "family": pixelSize >= 20 ? AppearanceSettings.displayFamily : AppearanceSettings.textFamily,
            "pixelSize": pixelSize,
            "weight": weight,
            "letterSpacing": spacing,
            "hintingPreference": Font.PreferNoHinting
        })
    }

    /// Line height of a role in pixels.
    function lineHeight(role: string, scale: real): real {
        return Math.round(typeRoles[role][1] * scale)
    }

    // Measures.
    readonly property int pageMargin: 32
    readonly property int cardPadding: 16
    readonly property int cardGap: 16
    readonly property int headingAbove: 20
    readonly property int headingBelow: 8
    readonly property int keyCapRadius: 7
    readonly property int tooltipRadius: 8
    readonly property int buttonRadius: 9
    readonly property int segmentTrackRadius: 10
    readonly property int segmentRadius: 8
    readonly property int tileRadius: 11
    readonly property int thumbnailRadius: 12
    readonly property int cardRadius: 14

    // Times in milliseconds. With reduced motion only opacity moves.
    readonly property int hoverTime: 120
    readonly property int pressTime: reducedMotion ? 120 : 80
    /// Switch knob, segment, tick mark.
    readonly property int switchTime: reducedMotion ? 0 : 160
    /// Phase colour, an ear lighting, the arc after start, extend or skip.
    readonly property int phaseTime: reducedMotion ? 0 : 240
    readonly property int routeTime: reducedMotion ? 0 : 220
    readonly property int routeFadeTime: reducedMotion ? 120 : 220
    readonly property int overlayInTime: reducedMotion ? 120 : 400
    readonly property int overlayOutTime: reducedMotion ? 120 : 250
    readonly property int hintDelay: 5000
    readonly property int hintTime: reducedMotion ? 120 : 600
    readonly property int undoTime: 6000
}
