import QtQuick
import QtTest
import Tomcatto.Appearance

TestCase {
    name: "Tile"
    when: windowShown
    width: 300
    height: 200
    visible: true

    Tile {
        id: tile

        symbol: "forward.fill"
        width: 120
    }

    function test_labelIsNeverCut_data() {
        return [
            {tag: "short", text: "Skip", size: 13, icon: true, lines: 1},
            {tag: "needs 12 or 11", text: "Überspringen jetzt", icon: false, lines: 1},
            {tag: "two lines", text: "Auf später verschieben bitte", size: 11, icon: false, lines: 2},
            {tag: "one long word", text: "Donaudampfschifffahrtsgesell", size: 11, icon: false, lines: 2},
            {tag: "narrow", text: "Überspringen", width: 88, size: 11, icon: false, lines: 1},
            {tag: "narrower", text: "Pause beginnen", width: 72, size: 11, icon: false, lines: 2},
        ]
    }
    function test_labelIsNeverCut(row) {
        tile.width = row.width ?? 120
        tile.text = row.text
        const label = findChild(tile, "label")
        compare(label.truncated, false)
        verify(label.contentWidth <= tile.width - 8, "inside the tile: " + label.contentWidth)
        verify(label.contentHeight <= tile.height - 4, "as high as the tile: " + label.contentHeight)
        verify(tile.labelSize >= 11)
        compare(label.lineCount, row.lines)
        compare(tile.showsSymbol, row.icon)
        if (row.size !== undefined)
            compare(tile.labelSize, row.size)
    }

    /// As the place narrows, the size falls first, then the symbol goes, then a second line comes; nothing comes back.
    function test_orderOfMeasures() {
        tile.text = "Take break"
        const label = findChild(tile, "label")
        const seen = []
        for (let width = 140; width >= 56; --width) {
            tile.width = width
            const step = label.lineCount > 1 ? 4 : !tile.showsSymbol ? 3 : 13 - tile.labelSize
            if (seen[seen.length - 1] !== step)
                seen.push(step)
            compare(label.truncated, false)
        }
        compare(seen, [0, 1, 2, 3, 4])
    }
}
