import QtQuick
import QtTest
import Tomcatto.Appearance
import Tomcatto.MenuBar

TestCase {
    id: test

    property var calls: []

    name: "MenubarPanel"
    when: windowShown
    width: 300
    height: 480
    visible: true

    QtObject {
        id: model

        property var clock: ({text: "25:00", progress: 0, name: ""})
        property var phase: test.phaseOf({})
        property var strip: ({rounds: 4, roundsDone: 1, isRoundCurrent: true, roundCompact: "", roundLabel: "", goalCount: "5", goalRest: " / 8", goalName: "", streak: "12", streakName: ""})
        property bool showsStatistics: false
        property string announcement: ""

        function primary() { test.calls.push("primary") }
        function reset() { test.calls.push("reset") }
        function skip() { test.calls.push("skip") }
        function takeBreak() { test.calls.push("takeBreak") }
        function extend() { test.calls.push("extend") }
        function quit() { test.calls.push("quit") }
        function openStatistics() { test.calls.push("statistics") }
        function openSettings() { test.calls.push("settings") }
    }
    Component {
        id: longTip

        ToolTip {
            delay: 0
            wanted: true
            targetTop: 300
            text: "Finished focus phases of today, and the goal of the day"
        }
    }
    PanelBody {
        id: panel

        width: 280
        height: 460
        viewModel: model
    }

    function phaseOf(changes) {
        return Object.assign({theme: "work", headline: "", name: "Focus", symbol: "", caption: "", isPaused: false, isPending: false, primaryText: "Pause",
            primarySymbol: "pause.fill", canReset: true, canSkip: true, showsTakeBreak: false, showsExtend: true}, changes)
    }
    function init() {
        calls = []
        panel.takeFocus()
    }
    function button(name) {
        return findChild(panel, name)
    }

    function test_controls_data() {
        return [
            {tag: "idle", phase: {canReset: false, canSkip: false, showsExtend: false, caption: "Classic"}, pressable: []},
            {tag: "running", phase: {}, pressable: ["extend", "reset", "skip"]},
            {tag: "pending", phase: {isPending: true, showsExtend: false}, pressable: ["reset", "skip"]},
            {tag: "overtime", phase: {theme: "overtime", showsTakeBreak: true}, pressable: ["extend", "reset", "takeBreak"]},
            {tag: "away", phase: {wasAway: true, showsTakeBreak: true, headline: "Away since 09:05"}, pressable: ["extend", "reset", "takeBreak"]},
        ]
    }
    function test_controls(row) {
        model.phase = phaseOf(row.phase)
        for (const name of ["extend", "reset", "skip", "takeBreak"]) {
            const control = button(name)
            compare(control.visible && control.enabled, row.pressable.includes(name), name)
            if (control.visible)
                mouseClick(control)
        }
        mouseClick(button("primary"))
        compare(button("primary").Accessible.description, row.phase.wasAway ? row.phase.headline : "")
        compare(calls, row.pressable.concat("primary"))
        compare(button("caption").visible, !row.pressable.includes("extend"))
        // A disabled tile keeps its place; take break and skip share one.
        compare(button("skip").visible, !row.pressable.includes("takeBreak"))
    }

    function test_keyboardGoesInReadingOrder() {
        model.phase = phaseOf({})
        verify(button("primary").activeFocus)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Return)
        compare(calls, ["primary", "primary"])
        const order = []
        for (let step = 0; step < 7; ++step) {
            keyClick(Qt.Key_Tab)
            calls = []
            keyClick(Qt.Key_Return)
            order.push(calls[0])
        }
        compare(order, ["reset", "skip", "quit", "statistics", "settings", "extend", "primary"])
    }

    function test_keyboardLeavesWhatGoes_data() {
        const idle = {theme: "idle", canReset: false, canSkip: false, showsExtend: false}
        const overtime = {theme: "overtime", showsTakeBreak: true}
        return [
            {tag: "reset", holder: "reset", before: {}, after: idle, heir: "primary"},
            {tag: "overtime", holder: "skip", before: {}, after: overtime, heir: "takeBreak"},
            {tag: "break", holder: "takeBreak", before: overtime, after: {theme: "shortBreak"}, heir: "skip"},
            {tag: "overtime reset", holder: "takeBreak", before: overtime, after: idle, heir: "primary"},
            {tag: "pending", holder: "extend", before: {}, after: {isPending: true, showsExtend: false}, heir: "primary"},
        ]
    }
    function test_keyboardLeavesWhatGoes(row) {
        model.phase = phaseOf(row.before)
        button(row.holder).forceActiveFocus(Qt.TabFocusReason)
        model.phase = phaseOf(row.after)
        keyClick(Qt.Key_Space)
        compare(calls, [row.heir])
    }

    function test_longTooltipsStayInside() {
        const tip = createTemporaryObject(longTip, panel)
        tryCompare(tip, "shown", true)
        wait(20)
        const layer = panel.Window.contentItem
        const bubble = Array.from(layer.children).find(item => item.z === 1000 && item.visible)
        verify(bubble.x >= 4 && bubble.x + bubble.width <= layer.width - 4, bubble.x + " " + bubble.width)
        verify(bubble.height >= 40, "two lines")
    }

    function test_longLabelsStayInside() {
        model.phase = phaseOf({name: "Langer Name", caption: "Eine recht lange Zeile, die in zwei Zeilen steht", showsExtend: false})
        model.clock = {text: "+100:41", progress: 0, name: ""}
        const time = button("time")
        verify(time.width < 184, "inside the ring: " + time.width)
        const caption = button("caption")
        verify(caption.lineCount === 2 && caption.y + caption.height < 186)
        verify(!caption.truncated)
    }
}
