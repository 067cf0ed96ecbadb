import QtQuick
import QtTest
import Tomcatto.Appearance
import Tomcatto.MainWindow

TestCase {
    id: test

    readonly property var log: world.window.statistics.log
    property var page: null

    name: "SessionLog"
    when: windowShown
    width: 800
    height: 700
    visible: true

    Component {
        id: maker

        StatisticsPage {
            anchors.fill: test
            viewModel: world.window.statistics
        }
    }
    UndoBar {
        id: bar

        width: test.width
        time: 60
    }

    function initTestCase() {
        // Thursday, the hours before 8:53; more than are loaded at once.
        world.addPhases(260)
        page = maker.createObject(test)
        waitForRendering(page)
    }

    function focused() {
        return test.Window.activeFocusItem
    }

    function tabTo(name) {
        for (let key = 0; key < 30 && !focused()?.Accessible.name.includes(name); ++key)
            keyClick(Qt.Key_Tab)
        return focused().Accessible.name
    }

    function test_removesByKeyAndTakesItBack() {
        const list = page.flickable
        compare(list.contentY, list.originY - list.topMargin)
        const all = list.count
        keyClick(Qt.Key_Tab)
        compare(tabTo("Remove"), "Remove: Focus, 07:53 – 08:18, 25 min, Done")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down)
        compare(focused().Accessible.name, "Remove: Focus, 05:53 – 06:18, 25 min, Done")
        keyClick(Qt.Key_Delete)
        compare(list.count, all - 1)
        compare(focused().Accessible.name, "Remove: Focus, 04:53 – 05:18, 25 min, Done")
        keyClick(Qt.Key_Space)
        compare(list.count, all - 2)
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(list.count, all - 1)
        compare(focused().Accessible.name, "Remove: Focus, 04:53 – 05:18, 25 min, Done")
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(list.count, all - 1, "the first removal is final")
    }

    function test_removesByPointer() {
        const list = page.flickable
        const all = list.count
        tabTo("Remove")
        const row = list.itemAtIndex(2)
        for (const x of [300, row.width - 28]) {
            mouseMove(row, x, row.height - 22)
            wait(20)
            verify(row.armed, x)
        }
        mouseClick(row, row.width - 28, row.height - 22)
        compare(list.count, all - 1)
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(list.count, all)
    }

    function test_scrollsToTheOldest() {
        world.window.statistics.statistics.selectRange(3)
        tabTo("Add a phase")
        for (let key = 0; key < 60 && page.flickable.count < 260; ++key) {
            keyClick(Qt.Key_PageDown)
            wait(0)
        }
        verify(page.flickable.count > 255, page.flickable.count)
        world.window.statistics.statistics.selectRange(1)
    }

    function test_saysAtOnceWhatIsWrong() {
        const list = page.flickable
        log.selectFilter(2)
        compare(list.count, 0)
        verify(list.contentY < list.originY, "what stands above the rows stays in view")
        tabTo("Add a phase")
        keyClick(Qt.Key_Return)
        compare(focused().Accessible.name, "Start")
        compare(log.form.line, "08:25 – 08:50, counts as a finished focus phase.")
        compare(focused().Accessible.description, "")
        for (const key of "07:55")
            keyClick(key)
        compare(focused().Accessible.description, "Focus, 07:53 – 08:18 is there already. Choose another start.")
        keyClick(Qt.Key_Return)
        verify(log.form.isOpen)
        keyClick(Qt.Key_Backspace)
        compare(focused().Accessible.description, "This is not a time of day. Write it like 09:30.")
        keyClick(Qt.Key_Escape)
        compare(focused().Accessible.name, "Add a phase")
        keyClick(Qt.Key_Return)
        keyClick(Qt.Key_Return)
        compare(log.filterIndex, 0)
        compare(list.itemAtIndex(0).times, "08:25 – 08:50")
    }

    function test_barWaitsForThePointer() {
        mouseMove(bar, bar.width / 2, bar.height - 30)
        bar.open = true
        wait(3 * bar.time)
        verify(bar.open)
        mouseMove(test, 1, test.height - 1)
        tryCompare(bar, "open", false)
    }
}
