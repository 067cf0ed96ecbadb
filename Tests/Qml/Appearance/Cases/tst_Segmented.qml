import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "Segmented"
    when: windowShown
    width: 400
    height: 100
    visible: true

    Segmented {
        id: segmented

        texts: ["Today", "Week", "All of the time"]
        onActivated: index => currentIndex = index
    }
    SignalSpy {
        id: activated

        target: segmented
        signalName: "activated"
    }

    function init() {
        segmented.equal = false
        segmented.width = segmented.implicitWidth
        segmented.currentIndex = 1
        segmented.forceActiveFocus()
        activated.clear()
    }

    function test_arrows_data() {
        return [
            {tag: "right", keys: [Qt.Key_Right], index: 2, count: 1},
            {tag: "not past the end", keys: [Qt.Key_Right, Qt.Key_Right], index: 2, count: 1},
            {tag: "left", keys: [Qt.Key_Left], index: 0, count: 1},
            {tag: "not before the start", keys: [Qt.Key_Left, Qt.Key_Left], index: 0, count: 1},
            {tag: "end and home", keys: [Qt.Key_End, Qt.Key_Home], index: 0, count: 2},
            {tag: "others pass", keys: [Qt.Key_A], index: 1, count: 0},
        ]
    }
    function test_arrows(row) {
        for (const key of row.keys)
            keyClick(key)
        compare(segmented.currentIndex, row.index)
        compare(activated.count, row.count)
        verify(segmented.showFocus)
    }

    function test_pointerChoosesWithoutRing() {
        mouseClick(segmented, segmented.width - 10, 17)
        compare(segmented.currentIndex, 2)
        compare(activated.signalArguments[0][0], 2)
        compare(segmented.showFocus, false)
    }

    function test_widths() {
        // The choice does not change the widths, although the chosen label is bolder.
        const before = segmented.implicitWidth
        segmented.currentIndex = 2
        compare(segmented.implicitWidth, before)
        verify(segmented.segmentWidth(2) > segmented.segmentWidth(0))
        segmented.equal = true
        segmented.width = 366
        compare(segmented.segmentWidth(0), 120)
        compare(segmented.segmentX(2), 243)
    }
}
