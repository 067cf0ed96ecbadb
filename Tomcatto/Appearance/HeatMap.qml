pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// Weeks of days as squares of deepening colour, a column to a week. One stop for Tab; arrows go from day to day and show
/// its tooltip.
Item {
    id: map

    /// By column, then by row: {level, name, tip, today}. Level 0 to 4; below 0 for days to come.
    property var cells: []
    /// One text to a row; empty ones are not drawn.
    property list<string> dayLabels
    /// {column, text} above the columns; none leaves no room for them.
    property var monthLabels: []
    property real cellWidth: 30
    property real cellHeight: 19
    property real gap: 5
    property real cellRadius: 6
    /// Room at least for the names of the days.
    property real labelWidth: 0
    property string name
    property real textScale: Theme.textScale
    property int currentIndex: -1
    property int hoveredIndex: -1
    property bool byKey: false
    readonly property int rows: 7
    readonly property int columns: Math.ceil(cells.length / rows)
    readonly property int shownIndex: hoveredIndex >= 0 ? hoveredIndex : activeFocus && byKey ? currentIndex : -1

    function move(step: int) {
        const next = currentIndex + step
        if (next >= 0 && next < cells.length && (cells[next].level >= 0))
            currentIndex = next
    }

    function cellX(index: int): real {
        return Math.floor(index / rows) * (cellWidth + gap)
    }

    function cellY(index: int): real {
        return (index % rows) * (cellHeight + gap)
    }

    implicitWidth: grid.x + columns * (cellWidth + gap) - gap
    implicitHeight: grid.y + rows * (cellHeight + gap) - gap
    activeFocusOnTab: cells.length > 0
    Accessible.role: Accessible.Table
    Accessible.name: shownIndex >= 0 && shownIndex < cells.length ? cells[shownIndex].name ?? name : name
    Accessible.focusable: true
    onActiveFocusChanged: {
        byKey = activeFocus
        if (activeFocus && currentIndex < 0)
            currentIndex = Math.max(0, cells.findIndex(cell => cell.today ?? false))
    }
    Keys.onLeftPressed: move(-rows)
    Keys.onRightPressed: move(rows)
    Keys.onUpPressed: move(-1)
    Keys.onDownPressed: move(1)

    Column {
        id: days

        // Of the small texts the lower half is fuller.
        y: grid.y + (map.cellHeight > 15 ? 1 : 0)
        spacing: map.gap

        Repeater {
            model: map.dayLabels

            QuietText {
                required property string modelData

                // A column leaves out children without a width; an unnamed day keeps its place.
                width: Math.max(1, implicitWidth)
                height: map.cellHeight
                text: modelData
                role: "micro"
                textScale: map.textScale
                color: Theme.ink2
                wrapMode: Text.NoWrap
            }
        }
    }
    Repeater {
        model: map.monthLabels

        QuietText {
            required property var modelData

            x: grid.x + modelData.column * (map.cellWidth + map.gap)
            y: 2
            text: modelData.text
            role: "micro"
            textScale: map.textScale
            color: Theme.ink2
            wrapMode: Text.NoWrap
        }
    }
    Item {
        id: grid

        x: days.width > 0 ? Math.max(map.labelWidth, Math.ceil(days.width)) + 10 : 0
        y: map.monthLabels.length > 0 ? Theme.lineHeight("micro", map.textScale) + 10 : 0
        width: map.columns * (map.cellWidth + map.gap) - map.gap
        height: map.rows * (map.cellHeight + map.gap) - map.gap

        Repeater {
            model: map.cells

            Rectangle {
                required property var modelData
                required property int index
                readonly property bool toCome: modelData.level < 0

                x: map.cellX(index)
                y: map.cellY(index)
                width: map.cellWidth
                height: map.cellHeight
                radius: map.cellRadius
                color: toCome ? "transparent" : Theme.heat[Math.min(4, modelData.level)]
                border.width: toCome || Theme.highContrast ? 1 : 0
                border.color: Theme.line
                Accessible.role: Accessible.Cell
                Accessible.name: modelData.name
                Accessible.ignored: toCome
            }
        }
        Rectangle {
            readonly property int day: map.cells.findIndex(cell => cell.today ?? false)

            visible: day >= 0
            x: map.cellX(day) - 3.5
            y: map.cellY(day) - 3.5
            width: map.cellWidth + 7
            height: map.cellHeight + 7
            radius: map.cellRadius + 3.5
            color: "transparent"
            border.width: 1.5
            border.color: Theme.ink
        }
        Rectangle {
            visible: map.activeFocus && map.byKey && map.currentIndex >= 0
            x: map.cellX(map.currentIndex) - 4
            y: map.cellY(map.currentIndex) - 4
            width: map.cellWidth + 8
            height: map.cellHeight + 8
            radius: map.cellRadius + 4
            color: "transparent"
            border.width: 2
            border.color: Theme.focus
        }
        MouseArea {
            function point() {
                const column = Math.floor(mouseX / (map.cellWidth + map.gap))
                const index = column * map.rows + Math.floor(mouseY / (map.cellHeight + map.gap))
                map.hoveredIndex = index < map.cells.length && map.cells[index].level >= 0 ? index : -1
            }

            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.NoButton
            onEntered: point()
            onPositionChanged: point()
            onExited: map.hoveredIndex = -1
        }
        ToolTip {
            readonly property var cell: map.cells[map.shownIndex]

            delay: 0
            wanted: cell !== undefined
            text: cell?.tip ?? ""
            textScale: map.textScale
            targetX: map.cellX(map.shownIndex) + map.cellWidth / 2
            targetTop: map.cellY(map.shownIndex)
            targetBottom: targetTop + map.cellHeight
        }
    }
}
