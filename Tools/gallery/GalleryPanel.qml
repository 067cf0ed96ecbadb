import QtQuick
import Tomcatto.Appearance

/// The panel's parts at their real places, in the states that differ.
Rectangle {
    id: gallery

    component Panel: Rectangle {
        id: panel

        property string phase: "work"
        property real progress: 0
        property bool paused: false
        property bool pending: false
        property string time: "16:12"
        property string label: "Focus"
        property string primary: "Pause"
        property string primarySymbol: "pause.fill"
        property string second: "Skip"
        property int done: 1
        property int rounds: 4
        readonly property var colours: Theme.phase(phase)

        width: 280
        height: 460
        radius: 14
        color: Theme.paper
        gradient: Gradient {
            GradientStop { position: 0; color: panel.colours.wash }
            GradientStop { position: 190 / 460; color: Theme.paper }
        }

        IconButton { x: 8; y: 8; symbol: "power"; text: "Quit" }
        IconButton { x: 208; y: 8; symbol: "chart.bar.fill"; text: "Statistics" }
        IconButton { x: 240; y: 8; symbol: "gearshape.fill"; text: "Settings" }
        ThemedText { anchors.horizontalCenter: parent.horizontalCenter; y: 16; text: "until 14:28"; role: "captionMedium"; color: Theme.ink2 }
        Dial {
            x: 40; y: 50
            phase: panel.phase
            progress: panel.progress
            paused: panel.paused
            pending: panel.pending
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            y: 96
            spacing: 6
            Symbol { visible: panel.paused; name: "pause.fill"; size: 12; color: Theme.ink2; anchors.verticalCenter: parent.verticalCenter }
            ThemedText { text: panel.label; role: "section"; color: panel.paused ? Theme.ink2 : panel.colours.text }
        }
        TickingText {
            anchors.horizontalCenter: parent.horizontalCenter
            y: 115
            text: panel.time
            font: Theme.font(panel.time.length >= 6 ? "dialTimeLong" : "dialTime", 1)
            lineHeight: 58
            opacity: panel.paused ? 0.6 : 1
        }
        Chip { anchors.horizontalCenter: parent.horizontalCenter; y: 176; text: "+5 min"; phase: panel.phase; visible: !panel.pending && panel.phase !== "idle" }
        ThemedText { anchors.horizontalCenter: parent.horizontalCenter; y: 184; text: "Take your time"; role: "caption"; color: Theme.ink2; visible: panel.pending }
        PrimaryButton { x: 16; y: 264; width: 248; text: panel.primary; symbol: panel.primarySymbol; phase: panel.phase }
        Tile { x: 16; y: 320; width: 120; text: panel.second === "Skip" ? "Reset" : "Zurücksetzen"; symbol: "arrow.counterclockwise"; enabled: panel.phase !== "idle" }
        Tile { x: 144; y: 320; width: 120; text: panel.second; symbol: wanted ? "cup.and.saucer.fill" : "forward.fill"; wanted: panel.phase === "overtime"; enabled: panel.phase !== "idle" }
        Rectangle { y: 376; width: 280; height: 84; color: Theme.sunk }
        Rectangle { y: 376; width: 280; height: 1; color: Theme.line }
        RoundMarkers { x: 93 / 2 - width / 2 + 4; y: 410 - height / 2; total: panel.rounds; done: panel.done; current: true; compactText: "7 / 12" }
        ThemedText { x: 93 / 2 - width / 2 + 4; y: 424; text: "Round 2 of 4"; role: "micro"; color: Theme.ink2 }
        TickingText { x: 140 - width / 2; y: 399; text: "12"; font: Theme.font("primary", 1); lineHeight: 22 }
    }

    width: 1240
    height: 1004
    color: Theme.dark ? "#171210" : "#E6DDD3"

    Row {
        x: 32; y: 32
        spacing: 16
        Panel { phase: "idle"; time: "25:00"; primary: "Start focus"; primarySymbol: "play.fill"; done: 0 }
        Panel { progress: 0.352 }
        Panel { progress: 0.352; paused: true; label: "Focus, paused"; primary: "Resume"; primarySymbol: "play.fill"; rounds: 12 }
        Panel { phase: "shortBreak"; progress: 0.34; time: "03:18"; label: "Short break"; done: 2; second: "Überspringen" }
    }
    Row {
        x: 32; y: 510
        spacing: 16
        Panel { phase: "shortBreak"; pending: true; time: "05:00"; label: "Break ready"; primary: "Start break"; primarySymbol: "cup.and.saucer.fill"; done: 2 }
        Panel { phase: "overtime"; time: "+02:41"; label: "Overtime"; second: "Take break"; done: 2 }
        Panel { phase: "longBreak"; progress: 0.97; time: "00:29"; label: "Long break"; second: "Auf später verschieben"; done: 3 }
        Item {
            width: 280; height: 460
            Grid {
                columns: 6
                spacing: 14
                Repeater {
                    model: ["arrow.clockwise", "arrow.counterclockwise", "arrow.down.circle", "bell", "chart.bar.fill", "chart.bar", "checkmark", "chevron.down", "chevron.left",
                        "chevron.right", "chevron.up.chevron.down", "cup.and.saucer.fill", "exclamationmark.triangle", "eye", "forward.fill", "gearshape.fill", "info", "minus",
                        "pause.fill", "pawprint", "play.fill", "play.rectangle", "plus", "power", "shield", "sliders", "speaker.slash.fill", "speaker.wave.2.fill",
                        "square.and.arrow.up", "sun.max", "target", "timer", "trash", "xmark"]
                    Symbol {
                        required property string modelData
                        name: modelData
                        size: 24
                        color: Theme.ink2
                    }
                }
            }
            Logo { y: 250; size: 96 }
            Logo { y: 250; x: 110; size: 96; variant: Logo.Mono; color: Theme.work.track }
            Logo { y: 360; size: 18; variant: Logo.SmallColour }
            Logo { y: 360; x: 30; size: 36; variant: Logo.SmallColour }
            Logo { y: 360; x: 80; size: 24; variant: Logo.Mono; color: Theme.ink }
            Logo { y: 360; x: 120; size: 80; variant: Logo.Plate }
        }
    }
}
