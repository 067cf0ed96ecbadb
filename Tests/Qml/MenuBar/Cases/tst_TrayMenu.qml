import QtQuick
import QtTest
import Tomcatto.MenuBar

TestCase {
    id: test

    property var calls: []

    name: "TrayMenu"
    when: windowShown
    width: 400
    height: 400
    visible: true

    QtObject {
        id: model

        property var lines: []

        function choose(key) { test.calls.push(key) }
        function dismiss() { test.calls.push("dismiss") }
    }
    TrayMenuBody {
        id: menu

        width: implicitWidth
        height: implicitHeight
        viewModel: model
    }

    function line(key, changes) {
        return Object.assign({key: key, text: key, isEnabled: true, isToggle: false, isChecked: false}, changes)
    }
    function init() {
        model.lines = [line("Panel"), line("", {isEnabled: false}), line("Start"), line("Skip", {isEnabled: false}), line("Statistics"), line("Quit")]
        menu.current = ""
        calls = []
        menu.forceActiveFocus()
    }

    function test_keysGoRoundWhatCanBeChosen() {
        const seen = []
        for (const key of [Qt.Key_Down, Qt.Key_Down, Qt.Key_Down, Qt.Key_Up, Qt.Key_Home, Qt.Key_Up, Qt.Key_Down, Qt.Key_End, Qt.Key_S, Qt.Key_S, Qt.Key_S]) {
            keyClick(key)
            seen.push(menu.current)
        }
        compare(seen, ["Panel", "Start", "Statistics", "Start", "Panel", "Quit", "Panel", "Quit", "Start", "Statistics", "Start"])
        keyClick(Qt.Key_Return)
        keyClick(Qt.Key_Escape)
        compare(calls, ["Start", "dismiss"])
    }
    function test_whatStaysKeepsTheKeyboardAndWhatIsNewDoesNotGetIt() {
        menu.current = "Statistics"
        model.lines = [line("Panel"), line("", {isEnabled: false}), line("Pause"), line("Statistics", {text: "Statistiken, lange Zeile"}), line("Quit")]
        compare(menu.current, "Statistics")
        keyClick(Qt.Key_Up)
        compare(menu.current, "Pause")
        model.lines = [line("Panel"), line("", {isEnabled: false}), line("Start"), line("Statistics"), line("Quit")]
        keyClick(Qt.Key_Return)
        compare(calls, [], "it was on its way to another one")
    }
    function test_pointerChoosesAtTheRelease() {
        mouseMove(menu, 40, 58)
        mouseMove(menu, 40, 60)
        compare(menu.current, "Start")
        mousePress(menu, 40, 60)
        mouseMove(menu, 40, 85)
        mouseRelease(menu, 40, 300)
        compare(calls.filter(key => key.length > 0), [], "let go elsewhere")
        mouseClick(menu, 40, 60)
        mouseClick(menu, 40, 90)
        mousePress(menu, 40, 60)
        mouseMove(menu, 40, 120)
        compare(menu.current, "Statistics")
        mouseRelease(menu, 40, 120)
        compare(calls.filter(key => key.length > 0), ["Start", "Statistics"], "the one between is off, and a press may be dragged")
    }
}
