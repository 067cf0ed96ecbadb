import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "Theme"
    when: windowShown
    width: 300
    height: 200
    visible: true

    Symbol {
        id: symbol

        size: 40
        name: "pause.fill"
        color: "#3D6FD6"
    }
    Card {
        id: card

        y: 60
        width: 300

        ListRow {
            id: row

            title: "Sounds"
            switchable: true
        }
        ListRow {
            id: plain

            title: "Version"
            value: "1"
        }
    }
    SignalSpy {
        id: toggled

        target: row
        signalName: "toggled"
    }

    function cleanup() {
        AppearanceSettings.dark = false
        AppearanceSettings.reducedMotion = false
        AppearanceSettings.highContrast = false
        AppearanceSettings.textScale = 1
    }

    function test_followsTheSettings() {
        const light = String(Theme.phase("work").text)
        AppearanceSettings.dark = true
        verify(Qt.colorEqual(Theme.paper, "#221B18"))
        verify(!Qt.colorEqual(Theme.phase("work").text, light))
        verify(Qt.colorEqual(card.color, "#2C2420"))
        AppearanceSettings.highContrast = true
        verify(Qt.colorEqual(Theme.line, Theme.controlLine))
        verify(Qt.colorEqual(Theme.phase("overtime").wash, Theme.card))
        AppearanceSettings.reducedMotion = true
        compare(Theme.phaseTime, 0)
        compare(Theme.overlayInTime, 120)
        const height = row.implicitHeight
        AppearanceSettings.textScale = 5
        compare(Theme.font("body", Theme.textScale).pixelSize, 28)
        tryVerify(() => row.implicitHeight > height)
    }

    function test_symbolsArePaintedInTheirColour() {
        let image = grabImage(symbol)
        const scale = image.width / symbol.width
        // A bar of the pause sign, and the gap between its two.
        verify(Qt.colorEqual(image.pixel(Math.round(14 * scale), Math.round(20 * scale)), "#3D6FD6"))
        verify(!Qt.colorEqual(image.pixel(Math.round(20 * scale), Math.round(20 * scale)), "#3D6FD6"))
        symbol.color = "#B3341C"
        image = grabImage(symbol)
        verify(Qt.colorEqual(image.pixel(Math.round(14 * scale), Math.round(20 * scale)), "#B3341C"))
    }

    function test_wholeRowIsItsSwitch() {
        toggled.clear()
        mouseClick(row, 20, 10)
        compare(row.checked, true)
        plain.forceActiveFocus()
        row.forceActiveFocus(Qt.TabFocusReason)
        verify(row.showFocus)
        keyClick(Qt.Key_Space)
        compare(row.checked, false)
        keyClick(Qt.Key_Return)
        compare(row.checked, true)
        compare(toggled.count, 3)
        mouseClick(plain, 20, 10)
        verify(row.activeFocus)
        compare(plain.checked, false)
    }
}
