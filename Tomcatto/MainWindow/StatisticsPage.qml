pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
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
    flickable: ListView {
        id: list

        parent: page
        y: page.contentTop
        width: page.width
        height: page.height - y
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        keyNavigationEnabled: false
        T.ScrollBar.vertical: PageScrollBar {}

        // A header of the list could not see what is around it.
        topMargin: head.height
        bottomMargin: Theme.pageMargin
        Component.onCompleted: contentY = head.y

        Column {
            id: head

            parent: list.contentItem
            x: page.columnX
            y: list.originY - height
            // The focus ring of the first control is not clipped.
            topPadding: 4
            onHeightChanged: list.contentY = y

            StatisticsOverview {
                width: page.columnWidth
                statistics: page.statistics
            }
        }
    }
}
