import QtQuick
import Tomcatto.Appearance

/// The length of one phase, by slider and by stepper. Both count whole minutes; a length in seconds stays until one of
/// them is moved.
ControlRow {
    id: row

    property int minutes: 1
    property string valueText
    /// As wide as the text of this row needs, and as wide as the row is told, so that rows stand in line.
    readonly property real naturalStepperWidth: 64 + Math.max(Math.round(66 * Theme.textScale), textMetrics.advanceWidth + 20)
    property real stepperWidth: 0
    /// What the slider may take beside the texts; where that is too little it has the row below them to itself.
    readonly property real sliderRoom: 0.65 * controlRoom - stepper.implicitWidth - 32

    signal chosen(int minutes)

    function focusControl() {
        slider.forceActiveFocus(Qt.TabFocusReason)
    }

    DurationSlider {
        id: slider

        anchors.verticalCenter: parent.verticalCenter
        width: row.sliderRoom >= 140 ? Math.min(220, row.sliderRoom) : row.controlRoom - stepper.implicitWidth - 32
        value: row.minutes
        phase: row.dot
        name: row.title
        valueText: row.valueText
        onMoved: wanted => row.chosen(wanted)
    }
    Item {
        width: 8
        height: 1
    }
    Stepper {
        id: stepper

        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: Math.max(row.stepperWidth, row.naturalStepperWidth)
        from: 1
        to: 180
        value: row.minutes
        text: row.valueText
        name: row.title
        onModified: wanted => row.chosen(wanted)

        TextMetrics {
            id: textMetrics

            font: Theme.font("section", Theme.textScale)
            text: row.valueText
        }
    }
}
