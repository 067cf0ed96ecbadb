import QtQuick
import QtTest
import Tomcatto.MainWindow

TestCase {
    id: test

    property var page: null

    name: "StatisticsPage"
    when: windowShown
    width: 720
    height: 800
    visible: true

    Component {
        id: maker

        StatisticsPage {
            anchors.fill: parent
            viewModel: world.window.statistics
        }
    }

    function initTestCase() {
        page = maker.createObject(test)
    }

    /// The one item below `item` for which `fits` holds.
    function one(fits, item = page) {
        const found = []
        const search = item => {
            if (item.visible && fits(item))
                found.push(item)
            Array.from(item.children).forEach(search)
        }
        search(item)
        compare(found.length, 1)
        return found[0]
    }

    function figure(label) {
        return one(item => item.label === label && item.parts !== undefined && item.caption !== undefined)
    }

    function value(label) {
        return figure(label).parts.map(part => part.text).join(" ")
    }

    // The names of the cases are in the order in which they run.
    function test_1_startsWithNoughtsAndNothingToExport() {
        one(item => item.title === "Nothing here yet")
        compare(value("Focus time"), "0 min")
        mouseClick(one(item => item.text === "Export" && item.clicked !== undefined))
        compare(world.exports(), 0)
        world.addPhase(0, 25)
        world.addPhase(3, 50)
        world.addPhase(8, 10)
        tryVerify(() => value("Sessions") === "2")
        compare(value("Daily average"), "0.2 sessions")
        mouseClick(one(item => item.text === "Export" && item.clicked !== undefined))
        compare(world.exports(), 1)
    }

    function test_2_tellsEachValueToTheKeyboard() {
        const ranges = one(item => item.name === "Period")
        ranges.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Right)
        tryVerify(() => figure("Sessions").caption === "this month")
        compare(value("Focus time"), "1 h 25 min")
        keyClick(Qt.Key_Left)

        const sessions = figure("Sessions")
        const tip = one(item => item.shown !== undefined && item.wanted !== undefined, sessions)
        verify(!tip.shown)
        sessions.forceActiveFocus(Qt.TabFocusReason)
        tryVerify(() => tip.shown)
        compare(tip.text, "1 today, 2 this week, 3 this month")

        const chart = one(item => item.bars !== undefined && item.maximum > 0)
        chart.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Left)
        compare(chart.Accessible.name, "Monday 6 October, 50 min of focus")
        const map = one(item => item.cells !== undefined)
        map.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Up)
        compare(map.Accessible.name, "Wednesday 1 October, 1 phase")
    }

    function test_3_turnsTheDayWhenTheZoneChanges() {
        const today = () => one(item => item.cells !== undefined).cells.findIndex(cell => cell.today)
        const before = today()
        world.moveTo("Pacific/Honolulu")
        tryVerify(() => today() === before - 1)
        compare(value("Days in a row"), "1")
        world.moveTo("UTC")
    }
}
