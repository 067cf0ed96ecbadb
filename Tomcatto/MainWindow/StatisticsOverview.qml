pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// What stands over the log: figures, chart and heat map of the chosen range.
Column {
    id: overview

    required property StatisticsViewModel statistics

    spacing: Theme.cardGap

    component Panel: Rectangle {
        property alias title: heading.text

        width: overview.width
        radius: Theme.cardRadius
        color: Theme.card
        border.color: Theme.line

        readonly property real contentTop: 17 + heading.height
        readonly property real contentWidth: width - 37

        ThemedText {
            id: heading

            x: 19
            y: 17
            role: "section"
            color: Theme.ink2
            Accessible.role: Accessible.Heading
        }
    }

    Grid {
        id: figures

        readonly property real cellWidth: (overview.width - (columns - 1) * spacing) / columns
        readonly property real cellHeight: Math.max(...Array.from(cards.model, (_, index) => cards.itemAt(index)?.implicitHeight ?? 0))

        columns: overview.width < 480 * Theme.textScale ? 2 : 4
        spacing: 12

        Repeater {
            id: cards

            model: overview.statistics.figures

            StatisticsFigure {
                required property var modelData

                width: figures.cellWidth
                height: figures.cellHeight
                label: modelData.label
                parts: modelData.parts
                caption: modelData.caption
                tip: modelData.tip
                Accessible.name: modelData.name
            }
        }
    }
    Panel {
        id: chartCard

        height: 262
        title: overview.statistics.chartTitle

        BarChart {
            x: 18
            y: chartCard.contentTop + 28
            width: chartCard.contentWidth + 2
            height: parent.height - y - 16
            visible: !overview.statistics.isEmpty
            axisWidth: 29
            bars: overview.statistics.chartBars
            ticks: overview.statistics.chartTicks
            maximum: overview.statistics.chartMaximum
            name: overview.statistics.chartTitle
        }
        EmptyState {
            y: chartCard.contentTop
            width: parent.width
            height: parent.height - y
            visible: overview.statistics.isEmpty
            title: overview.statistics.emptyTitle
            text: overview.statistics.emptyHelp
        }
    }
    Panel {
        id: heatCard

        height: map.y + map.implicitHeight + 19
        title: overview.statistics.heatTitle

        HeatLegend {
            x: parent.width - width - 19
            y: 19
            cellSize: 12
        }
        HeatMap {
            id: map

            x: 19
            y: heatCard.contentTop + 12
            labelWidth: 34
            cellWidth: Math.min(30, Math.floor((heatCard.contentWidth - labelWidth - 10 - 15 * gap) / 16))
            cellHeight: Math.max(19, Theme.lineHeight("micro", Theme.textScale))
            cells: overview.statistics.heatCells
            dayLabels: overview.statistics.heatDayLabels
            monthLabels: overview.statistics.heatMonthLabels
            name: overview.statistics.heatTitle
        }
    }
}
