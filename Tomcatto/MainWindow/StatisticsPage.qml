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

    header: Segmented {
        texts: page.statistics.rangeTexts
        currentIndex: page.statistics.rangeIndex
        name: Texts.text("stats.range.accessibility")
        onActivated: index => page.statistics.selectRange(index)
    }
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

        header: Column {
            x: page.columnX
            // The focus ring of the first control is not clipped.
            topPadding: 6

            StatisticsOverview {
                width: page.columnWidth
                statistics: page.statistics
            }
            LogHeading {
                width: page.columnWidth
            }
        }
        model: null
        delegate: LogRow {
            x: page.columnX
            width: page.columnWidth
        }
        footer: Item {
            width: 1
            height: Theme.pageMargin
        }
    }

    component LogHeading: Item {}
    component LogRow: Item {}
}
