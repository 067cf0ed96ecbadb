pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// Figures of a range over the log of its phases, which is one list with them: only the rows in view are made.
TitledPage {
    id: page

    required property StatisticsPageViewModel viewModel
    readonly property StatisticsViewModel statistics: viewModel.statistics

    title: Texts.text("window.page.statistics")
    Component.onCompleted: viewModel.appear()
    Component.onDestruction: viewModel?.disappear()

    header: [
        Segmented {
            id: ranges

            width: Math.min(Math.max(330, implicitWidth), page.columnWidth - exportButton.width - 12)
            equal: true
            texts: page.statistics.rangeTexts
            currentIndex: page.statistics.rangeIndex
            name: Texts.text("stats.range.accessibility")
            onActivated: index => page.statistics.selectRange(index)
        },
        PushButton {
            id: exportButton

            height: ranges.height
            // Quieter than a button of a dialog that cannot be pressed yet.
            fill: enabled ? Theme.card : "transparent"
            lineColor: Theme.line
            enabled: page.statistics.canExport
            symbol: "square.and.arrow.up"
            text: Texts.text("stats.export")
            Accessible.name: Texts.text("stats.export.accessibility")
            onClicked: page.statistics.exportSessions()
        }
    ]
    flickable: LogList {
        parent: page
        y: page.contentTop
        width: page.width
        height: page.height - y
        columnX: page.columnX
        columnWidth: page.columnWidth
        viewModel: page.viewModel
    }

    UndoBar {
        id: undo

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        z: 1
        columnWidth: page.columnWidth
        time: 8000
        offersUndo: page.viewModel.log.canUndo
        isError: page.viewModel.log.isToldError
        onUndone: page.viewModel.log.undoRemoval()
        onExpired: page.viewModel.log.forget()
    }
    Shortcut {
        sequence: "Ctrl+Z"
        enabled: undo.open && undo.offersUndo
        onActivated: undo.undo()
    }
    Connections {
        function onToldChanged() {
            // Closed first: what comes next has its own eight seconds.
            undo.open = false
            if (page.viewModel.log.told.length > 0) {
                undo.text = page.viewModel.log.told
                undo.open = true
            }
        }

        target: page.viewModel.log
    }
}
