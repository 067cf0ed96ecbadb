import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "Stepper"
    when: windowShown
    width: 300
    height: 100
    visible: true

    Stepper {
        id: stepper

        from: 1
        to: 180
        onModified: wanted => value = wanted
    }
    Item {
        id: elsewhere

        focus: true
    }
    SignalSpy {
        id: modified

        target: stepper
        signalName: "modified"
    }

    function init() {
        stepper.value = 25
        stepper.forceActiveFocus()
        modified.clear()
    }

    function test_keys_data() {
        return [
            {tag: "arrows", keys: [Qt.Key_Up, Qt.Key_Right, Qt.Key_Down], value: 26},
            {tag: "pages", keys: [Qt.Key_PageUp, Qt.Key_PageUp, Qt.Key_PageDown], value: 30},
            {tag: "bounds", keys: [Qt.Key_End, Qt.Key_Up], value: 180},
            {tag: "lower bound", keys: [Qt.Key_Home, Qt.Key_PageDown], value: 1},
            {tag: "typed", keys: [Qt.Key_9, Qt.Key_0, Qt.Key_Return], value: 90},
            {tag: "typed too large", keys: [Qt.Key_9, Qt.Key_9, Qt.Key_9, Qt.Key_Return], value: 180},
            {tag: "typed and mended", keys: [Qt.Key_4, Qt.Key_7, Qt.Key_Backspace, Qt.Key_5, Qt.Key_Enter], value: 45},
            {tag: "typed and left", keys: [Qt.Key_4, Qt.Key_Escape, Qt.Key_Return], value: 25},
        ]
    }
    function test_keys(row) {
        for (const key of row.keys)
            keyClick(key)
        compare(stepper.value, row.value)
        compare(stepper.typed, "")
    }

    function test_leavingTakesWhatWasTyped() {
        keyClick(Qt.Key_5)
        compare(stepper.value, 25)
        elsewhere.forceActiveFocus()
        compare(stepper.value, 5)
        compare(modified.count, 1)
    }

    function test_buttonsStepOnceAndStopAtTheBounds() {
        mouseClick(stepper, 16, 16)
        compare(stepper.value, 24)
        stepper.value = 2
        mouseClick(stepper, 16, 16)
        mouseClick(stepper, 16, 16)
        compare(stepper.value, 1)
        compare(modified.count, 2)
        mouseClick(stepper, stepper.width - 16, 16)
        compare(stepper.value, 2)
    }

    function test_heldButtonRepeatsUpToTheBound() {
        stepper.value = 176
        mousePress(stepper, stepper.width - 16, 16)
        compare(stepper.value, 177)
        tryCompare(stepper, "value", 180, 3000)
        wait(250)
        compare(stepper.value, 180)
        mouseRelease(stepper, stepper.width - 16, 16)
        compare(modified.count, 4)
    }
}
