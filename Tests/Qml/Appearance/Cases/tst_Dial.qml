import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "Dial"
    when: windowShown
    width: 300
    height: 300
    visible: true

    Dial {
        id: dial

        y: 20
        name: "Focus"
    }
    TickingText {
        id: time

        font: Theme.font("dialTime", 1)
    }

    function cleanup() {
        AppearanceSettings.dark = false
        AppearanceSettings.reducedMotion = false
    }

    function test_ears_data() {
        return [
            {tag: "start", phase: "work", degrees: 0, right: false, left: false},
            {tag: "before the right ear", phase: "work", degrees: 56.9, right: false, left: false},
            {tag: "right ear", phase: "work", degrees: 57, right: true, left: false},
            {tag: "before the left ear", phase: "longBreak", degrees: 342.9, right: true, left: false},
            {tag: "left ear", phase: "longBreak", degrees: 343, right: true, left: true},
            {tag: "overtime", phase: "overtime", degrees: 0, right: true, left: true},
            {tag: "idle", phase: "idle", degrees: 359, right: false, left: false},
            {tag: "pending", phase: "shortBreak", degrees: 359, pending: true, right: false, left: false},
        ]
    }
    function test_ears(row) {
        dial.phase = row.phase
        dial.pending = row.pending ?? false
        dial.progress = row.degrees / 360
        compare(dial.rightEarLit, row.right)
        compare(dial.leftEarLit, row.left)
    }

    function pixel(angle, radius) {
        const image = grabImage(dial)
        const scale = image.width / dial.width
        const turn = angle * Math.PI / 180
        return image.pixel(Math.round((100 + radius * Math.sin(turn)) * scale), Math.round((100 - radius * Math.cos(turn)) * scale))
    }

    function test_ringIsPainted_data() {
        return [
            {tag: "running", phase: "work", paused: false, dark: false, arc: "#C2571A", track: "#F7CFB7", disc: "#FFFFFF"},
            {tag: "paused", phase: "work", paused: true, dark: false, arc: "#7A6C61", track: "#F7CFB7", disc: "#FFFFFF"},
            {tag: "dark break", phase: "shortBreak", paused: false, dark: true, arc: "#ADC6FF", track: "#494B59", disc: "#2C2420"},
        ]
    }
    function test_ringIsPainted(row) {
        AppearanceSettings.reducedMotion = true
        AppearanceSettings.dark = row.dark
        dial.phase = row.phase
        dial.pending = false
        dial.paused = row.paused
        dial.progress = 0.5
        verify(Qt.colorEqual(pixel(90, 95), row.arc), "arc " + pixel(90, 95))
        verify(Qt.colorEqual(pixel(270, 95), row.track), "track " + pixel(270, 95))
        verify(Qt.colorEqual(pixel(90, 80), row.disc), "disc " + pixel(90, 80))
        dial.paused = false
    }

    function test_digitsDoNotDance() {
        for (const role of ["dialTime", "dialTimeLong", "figureSmall", "primary"]) {
            time.font = Theme.font(role, 1)
            time.text = "00:00"
            const width = time.implicitWidth
            verify(width > 0)
            for (const text of ["11:11", "18:47", "29:36", "88:05"]) {
                time.text = text
                compare(time.implicitWidth, width)
            }
            time.text = "+00:00"
            verify(time.implicitWidth > width)
        }
    }
}
