import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "DurationSlider"
    when: windowShown
    width: 300
    height: 100
    visible: true

    DurationSlider {
        id: slider

        x: 20
        width: 220
        onMoved: wanted => value = wanted
    }
    SignalSpy {
        id: moved

        target: slider
        signalName: "moved"
    }

    function init() {
        slider.value = 25
        slider.forceActiveFocus()
        moved.clear()
    }

    function test_scaleIsItsOwnInverse() {
        let before = -1
        for (let minutes = 1; minutes <= 180; ++minutes) {
            const position = slider.positionOf(minutes)
            verify(position > before && position <= 1)
            compare(slider.minutesAt(position), minutes)
            before = position
        }
        compare(slider.positionOf(1), 0)
        compare(slider.positionOf(180), 1)
        // The short lengths have the room.
        verify(slider.positionOf(46) >= 0.5)
        compare(slider.minutesAt(-0.5), 1)
        compare(slider.minutesAt(1.5), 180)
    }

    function test_keys_data() {
        return [
            {tag: "right", key: Qt.Key_Right, from: 25, to: 26},
            {tag: "left", key: Qt.Key_Left, from: 25, to: 24},
            {tag: "up", key: Qt.Key_Up, from: 25, to: 26},
            {tag: "page up", key: Qt.Key_PageUp, from: 25, to: 30},
            {tag: "page down", key: Qt.Key_PageDown, from: 25, to: 20},
            {tag: "page down at the end", key: Qt.Key_PageDown, from: 3, to: 1},
            {tag: "left at the end", key: Qt.Key_Left, from: 1, to: 1},
            {tag: "page up at the end", key: Qt.Key_PageUp, from: 178, to: 180},
            {tag: "home", key: Qt.Key_Home, from: 25, to: 1},
            {tag: "end", key: Qt.Key_End, from: 25, to: 180},
        ]
    }
    function test_keys(row) {
        slider.value = row.from
        keyClick(row.key)
        compare(slider.value, row.to)
        compare(moved.count, row.from === row.to ? 0 : 1)
        compare(slider.showFocus, true)
    }

    function test_pointerFollowsTheScale() {
        mousePress(slider, slider.width, 16)
        compare(slider.value, 180)
        mouseMove(slider, slider.width / 2, 16)
        compare(slider.value, slider.minutesAt(0.5))
        mouseMove(slider, -40, 16)
        compare(slider.value, 1)
        mouseRelease(slider, -40, 16)
        compare(slider.showFocus, false)
    }
}
