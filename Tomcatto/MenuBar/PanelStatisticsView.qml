pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The statistics route: range, figures, chart and heat map.
Item {
    id: view

    required property MenubarPanelViewModel viewModel
    required property StatisticsViewModel statistics

    function takeFocus() {
        ranges.forceActiveFocus(Qt.OtherFocusReason)
    }

    TextButton {
        x: 8
        y: 8
        objectName: "back"
        textScale: 1
        symbol: "chevron.left"
        text: Texts.text("menubar.stats.back")
        onClicked: view.viewModel.back()
    }
    ThemedText {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 14
        text: Texts.text("stats.title")
        role: "bodyStrong"
        textScale: 1
        wrapMode: Text.NoWrap
        Accessible.role: Accessible.Heading
    }
    IconButton {
        x: view.width - width - 8
        y: 8
        objectName: "export"
        enabled: view.statistics.canExport
        symbol: "square.and.arrow.up"
        textScale: 1
        text: Texts.text("stats.export.accessibility")
        onClicked: view.statistics.exportSessions()
    }
    Segmented {
        id: ranges

        x: 16
        y: 48
        width: view.width - 32
        equal: true
        textScale: 1
        texts: view.statistics.rangeTexts
        currentIndex: view.statistics.rangeIndex
        name: Texts.text("stats.range.accessibility")
        onActivated: index => view.statistics.selectRange(index)
    }
    Row {
        x: 16
        y: 94
        spacing: 8

        Repeater {
            // There is room for three; the average stands over the chart.
            model: Math.min(3, view.statistics.figures.length)

            PanelFigure {
                required property int index
                readonly property var shown: view.statistics.figures[index] ?? ({})
                readonly property real column: (view.width - 32 - 16) / 3

                // The three and their gaps end with the cards below, whose width is not a multiple of three.
                width: Math.round((index + 1) * column) - Math.round(index * column)
                height: 64
                parts: shown.parts ?? []
                label: shown.label ?? ""
                Accessible.name: shown.name ?? ""
            }
        }
    }
    component Box: Rectangle {
        property alias title: heading.text

        x: 16
        width: view.width - 32
        radius: Theme.cardRadius
        color: Theme.card
        border.color: Theme.line

        ThemedText {
            id: heading

            x: 15
            y: 12
            role: "section"
            textScale: 1
            color: Theme.ink2
        }
    }
    Box {
        y: 166
        height: 172
        title: view.statistics.chartTitle

        ThemedText {
            readonly property var average: view.statistics.figures[3] ?? ({"label": "", "parts": [{"text": ""}]})

            x: parent.width - width - 15
            y: 14
            objectName: "average"
            text: average.label + " " + average.parts[0].text
            role: "micro"
            textScale: 1
            color: Theme.ink2
            wrapMode: Text.NoWrap
            Accessible.name: average.name ?? ""
        }
        BarChart {
            x: 15
            y: 36
            width: parent.width - 30
            height: 129
            visible: !view.statistics.isEmpty
            textScale: 1
            bars: view.statistics.chartBars
            ticks: view.statistics.chartTicks
            maximum: view.statistics.chartMaximum
            name: view.statistics.chartTitle
        }
        EmptyState {
            y: 24
            width: parent.width
            height: 140
            visible: view.statistics.isEmpty
            textScale: 1
            title: view.statistics.emptyTitle
            text: view.statistics.emptyHelp
        }
    }
    Box {
        y: 350
        height: 194
        title: view.statistics.heatTitle

        HeatLegend {
            x: parent.width - width - 15
            y: 14
            textScale: 1
        }
        HeatMap {
            x: 15
            y: 44
            cellWidth: 15
            cellHeight: 15
            gap: 4
            cellRadius: 4
            textScale: 1
            cells: view.statistics.heatCells
            dayLabels: view.statistics.heatDayLabels
            name: view.statistics.heatTitle
        }
    }
}
