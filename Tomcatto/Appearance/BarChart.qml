pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// Bars over named days with three grid lines. One stop for Tab; the arrow keys go from bar to bar and show its tooltip.
Item {
    id: chart

    /// From left to right: {value, label, tip, name, today}. `name` is what a screen reader says; an empty label is not drawn.
    property var bars: []
    /// {value, label}, the base line first.
    property var ticks: []
    /// The value at the upper edge.
    property real maximum: 1
    property string name
    property real textScale: Theme.textScale
    /// Room at least for the texts of the ticks.
    property real axisWidth: 0
    property int currentIndex: -1
    property int hoveredIndex: -1
    property bool byKey: false
    readonly property int shownIndex: hoveredIndex >= 0 ? hoveredIndex : activeFocus && byKey ? currentIndex : -1
    readonly property real slotWidth: plot.width / Math.max(1, bars.length)
    readonly property real barWidth: Math.min(40, Math.round(slotWidth * 0.6))
    readonly property real labelHeight: Theme.lineHeight("micro", textScale)

    /// Only so many that they do not touch, the last one among them.
    readonly property var labelled: {
        const places = bars.map((bar, index) => bar.label ? index : -1).filter(index => index >= 0)
        const gap = places.reduce((least, place, index) => index > 0 ? Math.min(least, place - places[index - 1]) : least, bars.length)
        const widest = Math.max(0, ...places.map(place => labelMetrics.advanceWidth(bars[place].label)))
        const step = Math.max(1, Math.ceil((widest + 8) / Math.max(1, gap * slotWidth)))
        return places.filter((_, index) => (places.length - 1 - index) % step === 0)
    }

    function heightOf(value: real): real {
        return maximum > 0 ? Math.round(plot.height * Math.max(0, Math.min(1, value / maximum))) : 0
    }

    function move(index: int) {
        if (index >= 0 && index < bars.length)
            currentIndex = index
    }

    implicitWidth: 320
    implicitHeight: 140
    activeFocusOnTab: bars.length > 0
    Accessible.role: Accessible.Chart
    Accessible.name: shownIndex >= 0 && shownIndex < bars.length ? bars[shownIndex].name ?? name : name
    Accessible.focusable: true
    onActiveFocusChanged: {
        byKey = activeFocus
        if (activeFocus && currentIndex < 0)
            currentIndex = bars.length - 1
    }
    Keys.onLeftPressed: move(currentIndex - 1)
    Keys.onRightPressed: move(currentIndex + 1)

    FontMetrics {
        id: labelMetrics

        font: Theme.sizedFont(Math.round(11 * chart.textScale), Font.DemiBold, 0)
    }
    FocusRing {
        shown: chart.activeFocus && chart.byKey
        parentRadius: 4
    }
    Column {
        id: axis

        visible: false
        Repeater {
            model: chart.ticks

            QuietText {
                required property var modelData

                text: modelData.label
                role: "micro"
                textScale: chart.textScale
                wrapMode: Text.NoWrap
            }
        }
    }
    Item {
        id: plot

        x: Math.max(chart.axisWidth, Math.ceil(axis.implicitWidth)) + 8
        y: 7
        width: chart.width - x
        height: chart.height - y - chart.labelHeight - 7

        Repeater {
            model: chart.ticks

            Item {
                id: tick

                required property var modelData
                required property int index

                y: plot.height - chart.heightOf(modelData.value)
                width: plot.width

                Rectangle {
                    width: parent.width
                    height: 1
                    color: Theme.line
                    visible: tick.index > 0
                }
                QuietText {
                    x: -8 - implicitWidth
                    y: -height / 2
                    text: tick.modelData.label
                    role: "micro"
                    textScale: chart.textScale
                    color: Theme.ink2
                    wrapMode: Text.NoWrap
                }
            }
        }
        Repeater {
            model: chart.bars

            Item {
                id: slot

                required property var modelData
                required property int index
                readonly property bool isToday: modelData.today ?? false

                x: index * chart.slotWidth
                width: chart.slotWidth
                height: plot.height
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.name ?? ""

                // Cut at the base line, so that only the upper corners are round.
                Item {
                    anchors.horizontalCenter: parent.horizontalCenter
                    anchors.bottom: parent.bottom
                    width: chart.barWidth
                    height: chart.heightOf(slot.modelData.value)
                    clip: true

                    Rectangle {
                        width: parent.width
                        height: parent.height + radius
                        radius: 5
                        color: Theme.work.solid
                    }
                    Rectangle {
                        visible: !slot.isToday
                        y: 3
                        width: parent.width
                        height: parent.height + radius
                        radius: 5
                        color: Theme.heat[slot.index === chart.shownIndex ? 3 : 2]
                    }
                }
                QuietText {
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: plot.height + 8
                    text: chart.labelled.includes(slot.index) ? slot.modelData.label : ""
                    font: slot.isToday ? Theme.sizedFont(Math.round(11 * chart.textScale), Font.DemiBold, 0) : Theme.font("micro", chart.textScale)
                    lineHeight: chart.labelHeight
                    color: slot.isToday ? Theme.ink : Theme.ink2
                    wrapMode: Text.NoWrap
                }
            }
        }
        Rectangle {
            y: plot.height
            width: parent.width
            height: 1
            color: Theme.controlLine
        }
        MouseArea {
            function point() {
                chart.hoveredIndex = Math.max(0, Math.min(chart.bars.length - 1, Math.floor(mouseX / chart.slotWidth)))
            }

            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.NoButton
            // A page that scrolls comes under a pointer that rests.
            onEntered: point()
            onPositionChanged: point()
            onExited: chart.hoveredIndex = -1
        }
        ToolTip {
            readonly property var bar: chart.bars[chart.shownIndex]

            delay: 0
            wanted: bar !== undefined
            text: bar?.tip ?? ""
            textScale: chart.textScale
            targetX: (chart.shownIndex + 0.5) * chart.slotWidth
            targetTop: plot.height - chart.heightOf(bar?.value ?? 0)
            targetBottom: plot.height
        }
    }
}
