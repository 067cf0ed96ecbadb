import QtQuick
import Tomcatto.Appearance

/// Every control in each of its states.
Rectangle {
    width: 1400
    height: 1004
    color: Theme.dark ? "#171210" : "#EFE6DC"

    GalleryPlate {
        x: 37; y: 37; width: 1326; height: 142
        title: "Primary transport, 48 high, radius 14"

        Row {
            spacing: 18
            GallerySpecimen { caption: "Default"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill" } }
            GallerySpecimen { caption: "Hover"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; showHover: true } }
            GallerySpecimen { caption: "Pressed"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; down: true } }
            GallerySpecimen { caption: "Focus"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; showFocus: true } }
            GallerySpecimen { caption: "Disabled"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; enabled: false } }
            GallerySpecimen { caption: "Short break"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; phase: "shortBreak" } }
            GallerySpecimen { caption: "Long break"; PrimaryButton { width: 150; text: "Start focus"; symbol: "play.fill"; phase: "longBreak" } }
        }
    }
    GalleryPlate {
        x: 37; y: 200; width: 640; height: 135
        title: "Tile, 40 high, radius 11"

        Row {
            spacing: 9
            GallerySpecimen { caption: "Default"; Tile { text: "Reset"; symbol: "arrow.counterclockwise" } }
            GallerySpecimen { caption: "Hover"; Tile { text: "Reset"; symbol: "arrow.counterclockwise"; showHover: true } }
            GallerySpecimen { caption: "Pressed"; Tile { text: "Reset"; symbol: "arrow.counterclockwise"; down: true } }
            GallerySpecimen { caption: "Focus"; Tile { text: "Reset"; symbol: "arrow.counterclockwise"; showFocus: true } }
            GallerySpecimen { caption: "Disabled"; Tile { text: "Reset"; symbol: "arrow.counterclockwise"; enabled: false } }
            GallerySpecimen { caption: "Wanted"; Tile { text: "Take break"; symbol: "cup.and.saucer.fill"; wanted: true } }
        }
    }
    GalleryPlate {
        x: 697; y: 200; width: 666; height: 135
        title: "Icon button 32, icon 17, chip 28, buttons 32"

        Row {
            spacing: 8
            GallerySpecimen { caption: "Default"; IconButton { symbol: "gearshape.fill" } }
            GallerySpecimen { caption: "Hover"; IconButton { symbol: "gearshape.fill"; showHover: true } }
            GallerySpecimen { caption: "Pressed"; IconButton { symbol: "gearshape.fill"; down: true } }
            GallerySpecimen { caption: "Focus"; IconButton { symbol: "gearshape.fill"; showFocus: true } }
            GallerySpecimen { caption: "Disabled"; IconButton { symbol: "gearshape.fill"; enabled: false } }
            GallerySpecimen { caption: "Chip"; Chip { text: "+5 min" } }
            GallerySpecimen { caption: "Button"; PushButton { text: "Record" } }
            GallerySpecimen { caption: "Prominent"; PushButton { text: "Allow"; prominent: true } }
            GallerySpecimen { caption: "Text"; TextButton { text: "Back" } }
            GallerySpecimen {
                caption: "Key caps, 26"
                Row {
                    topPadding: 3
                    bottomPadding: 3
                    spacing: 4
                    KeyCap { text: "⌃" }
                    KeyCap { text: "⌥" }
                    KeyCap { text: "P" }
                }
            }
        }
    }
    GalleryPlate {
        x: 37; y: 356; width: 640; height: 128
        title: "Switch 40 × 24, segmented 34, stepper 32"

        Row {
            spacing: 18
            GallerySpecimen { caption: "On"; Switch { checked: true } }
            GallerySpecimen { caption: "Off"; Switch {} }
            GallerySpecimen { caption: "Focus"; Switch { checked: true; showFocus: true } }
            GallerySpecimen { caption: "Disabled"; Switch { checked: true; enabled: false } }
            GallerySpecimen { caption: "Segmented"; Segmented { texts: ["Icon only", "Icon and time"]; currentIndex: 1 } }
            GallerySpecimen { caption: "Stepper"; Stepper { value: 25; text: "25 min" } }
        }
    }
    GalleryPlate {
        x: 697; y: 356; width: 666; height: 128
        title: "Slider: track 4, thumb 20, hit 32"

        Row {
            spacing: 28
            GallerySpecimen { caption: "Default"; DurationSlider { width: 150; value: 24 } }
            GallerySpecimen { caption: "Short break"; DurationSlider { width: 150; value: 8; phase: "shortBreak" } }
            GallerySpecimen { caption: "Focus"; DurationSlider { width: 150; value: 56; showFocus: true } }
            GallerySpecimen { caption: "Disabled"; DurationSlider { width: 90; value: 29; enabled: false } }
        }
    }
    GalleryPlate {
        x: 697; y: 507; width: 666; height: 202
        title: "Rounds, chart bar, heat map"

        Row {
            spacing: 18
            RoundMarkers { y: 60; total: 3; done: 1; current: true; markerSize: 16 }
            Timer { interval: 100; running: true; onTriggered: chart.hoveredIndex = 1 }
            BarChart {
                id: chart
                y: 6; width: 230; height: 130
                maximum: 160
                ticks: [{value: 0, label: "0"}, {value: 60, label: "1 h"}, {value: 120, label: "2 h"}]
                bars: [{value: 100, label: "Wed"}, {value: 150, label: "Thu", tip: "2 h 30 min"}, {value: 50, label: "Fri"}, {value: 125, label: "Tue", today: true}]
            }
            HeatMap {
                cellWidth: 15; cellHeight: 15; gap: 4; cellRadius: 4
                dayLabels: ["Mon", "", "Wed", "", "Fri", "", "Sun"]
                cells: {
                    const levels = [0, 3, 3, 4, 4, 1, 2, 4, 0, 1, 2, 0, 2, 2, 1, 3, 1, 2, 4, 0, 2, 1, 2, 1, 2, 3, 1, 2, 3, 4, 2, 3, 3, 0, 1, 4, 3, -1, -1, -1, -1, -1]
                    return Array.from(levels, (level, index) => ({level: level, name: "day", tip: "5 phases", today: index === 36}))
                }
            }
            HeatLegend {}
        }
    }
    GalleryPlate {
        x: 37; y: 507; width: 640; height: 202
        title: "Dial: outer 200, stroke 10, ears ±35°"

        Row {
            y: 8
            spacing: 22
            GallerySpecimen { caption: "Idle"; Dial { width: 100; height: 100 } }
            GallerySpecimen { caption: "Running"; Dial { width: 100; height: 100; phase: "work"; progress: 0.352 } }
            GallerySpecimen { caption: "Paused"; Dial { width: 100; height: 100; phase: "work"; progress: 0.352; paused: true } }
            GallerySpecimen { caption: "Long break"; Dial { width: 100; height: 100; phase: "longBreak"; progress: 0.978 } }
            GallerySpecimen { caption: "Overtime"; Dial { width: 100; height: 100; phase: "overtime" } }
        }
    }
    GalleryPlate {
        x: 37; y: 730; width: 640; height: 236
        title: "List row, at least 52 high, card radius 14"

        Card {
            width: 600
            ListRow { title: "Sounds"; help: "A short sound when a phase begins"; switchable: true; checked: true }
            ListRow { title: "Notifications"; help: "Off in the system settings"; helpIsError: true; switchable: true }
            ListRow { title: "Qt 6"; value: "LGPL 3"; navigates: true; showHover: true }
        }
    }
    GalleryPlate {
        x: 697; y: 730; width: 666; height: 236
        title: "Empty states"

        Card {
            width: 304; height: 162
            EmptyState { width: parent.width; height: 160; title: "Nothing here yet"; text: "Your first finished focus phase shows up here." }
        }
        Card {
            x: 320; width: 304; height: 162
            EmptyState { width: parent.width; height: 160; symbol: "exclamationmark.triangle"; title: "The library did not answer"; text: "The cats you have still play."; actionText: "Try again" }
        }
    }
}
