pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The figures of a range and, below them in the same list, the log of its phases: only the rows in view are made.
/// The rows are one stop for Tab; the arrow keys go from row to row.
ListView {
    id: list

    required property StatisticsPageViewModel viewModel
    required property real columnX
    required property real columnWidth
    readonly property SessionLogViewModel log: viewModel.log
    /// That gets the keyboard when one has been removed by it; below 0 where none does.
    property int rowToTake: -1

    /// Gives the keyboard to a row, or to the nearest there is.
    function takeRow(index: int) {
        if (count === 0)
            return heading.takeFocus()
        show(index)
        currentIndex = Math.max(0, Math.min(count - 1, index))
    }

    function show(index: int) {
        forceLayout()
        positionViewAtIndex(Math.max(0, Math.min(count - 1, index)), ListView.Contain)
    }

    function removeRow(index: int, id: string, byKey: bool) {
        rowToTake = byKey ? index : -1
        log.remove(id)
    }

    // Once the row is gone, the next one stands in its place.
    onCountChanged: if (rowToTake >= 0)
        removed.start()
    Timer {
        id: removed

        interval: 0
        onTriggered: {
            list.takeRow(list.rowToTake)
            list.rowToTake = -1
        }
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    reuseItems: true
    // Only while the keyboard is on a row: a list gives it to its current row whenever that changes.
    currentIndex: -1
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    model: log.rows
    Accessible.role: Accessible.List
    Accessible.name: Texts.text("stats.log.title")
    // A list that takes its rows from a pool does not ask for more of them at its end.
    onContentYChanged: if (contentY + 2 * height > originY + contentHeight)
        log.loadMore()
    T.ScrollBar.vertical: PageScrollBar {}

    // Above the rows without being one of them. A header of the list could not see what is around it.
    topMargin: head.room
    bottomMargin: Theme.pageMargin
    delegate: LogRow {
        id: row

        x: list.columnX
        width: list.columnWidth
        onMoved: step => {
            if (index + step >= 0 && index + step < list.count)
                list.takeRow(index + step)
        }
        onRemoved: (id, byKey) => list.removeRow(index, id, byKey)
        onActiveFocusChanged: {
            if (activeFocus)
                list.currentIndex = index
            else if (list.currentIndex === index)
                list.currentIndex = -1
        }
    }

    Column {
        id: head

        /// Its height, as soon as the list has been told.
        property real room: 0

        parent: list.contentItem
        x: list.columnX
        y: list.originY - room
        // The focus ring of the first control is not clipped.
        topPadding: 4
        // What is seen of it stays where it is; the rows give way.
        onHeightChanged: {
            const place = room > 0 ? list.contentY - y : 0
            const isSeen = place <= room
            room = height
            if (isSeen)
                list.contentY = y + place
        }

        StatisticsOverview {
            width: list.columnWidth
            statistics: list.viewModel.statistics
        }
        LogHeading {
            id: heading

            width: list.columnWidth
            log: list.log
        }
        // Tab comes to the rows through here, to the first one in view.
        Item {
            width: 1
            height: 1
            activeFocusOnTab: list.count > 0
            onActiveFocusChanged: if (activeFocus)
                list.takeRow(list.indexAt(list.columnX + 1, list.contentY + 40))
        }
    }
    Connections {
        target: list.log

        // A list without rows begins where they would.
        function onIsEmptyChanged() {
            const place = Math.min(list.contentY, list.originY) - head.y
            heading.layOut()
            head.forceLayout()
            list.forceLayout()
            settling.place = place
            settling.restart()
        }

        function onRevealed(row: int) {
            if (list.currentIndex < 0)
                list.show(row)
            else
                list.takeRow(row)
        }
    }

    // After an empty list has gone to its beginning by itself.
    Timer {
        id: settling

        property real place

        interval: 1
        onTriggered: {
            const last = list.originY + list.contentHeight + list.bottomMargin - list.height
            list.contentY = Math.max(head.y, Math.min(head.y + place, last))
        }
    }
}
