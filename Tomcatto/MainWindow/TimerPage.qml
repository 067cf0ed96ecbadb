pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// Presets, durations, rounds, goal and the automatic switches.
ScrollPage {
    id: page

    required property TimerPageViewModel viewModel

    /// That of the widest duration, so that all steppers and sliders stand in line.
    readonly property real stepperWidth: Math.max(0, ...Array.from({length: rows.count},
        (_, index) => (rows.itemAt(index) as DurationRow)?.naturalStepperWidth ?? 0))

    title: Texts.text("window.page.timer")
    subtitle: Texts.text("window.timer.subtitle")
    spacing: Theme.cardGap

    Connections {
        target: page.viewModel
        function onControlsWanted() {
            (rows.itemAt(0) as DurationRow)?.focusControl()
        }
    }
    Grid {
        id: grid

        readonly property var shown: Array.from({length: tiles.count}, (_, index) => tiles.itemAt(index) as PresetTile)
        readonly property real widest: Math.max(0, ...shown.map(tile => tile?.implicitWidth ?? 0))
        readonly property real tallest: Math.max(76, ...shown.map(tile => tile?.implicitHeight ?? 0))
        readonly property bool fits: (page.columnWidth - 36) / 4 >= widest

        function move(from: int, step: int) {
            const target = tiles.itemAt(from + step)
            if (target)
                target.forceActiveFocus(Qt.TabFocusReason)
        }

        columns: fits ? 4 : 2
        spacing: 12

        Repeater {
            id: tiles

            model: page.viewModel.presets.length

            PresetTile {
                required property int index
                readonly property var preset: page.viewModel.presets[index] ?? ({})

                width: (page.columnWidth - 12 * (grid.columns - 1)) / grid.columns
                height: grid.tallest
                title: preset.title ?? ""
                help: preset.help ?? ""
                text: preset.name ?? ""
                durations: preset.durations ?? []
                selected: page.viewModel.preset === preset.id
                onClicked: page.viewModel.choosePreset(preset.id)
                Keys.onLeftPressed: grid.move(index, -1)
                Keys.onRightPressed: grid.move(index, 1)
                Keys.onUpPressed: grid.move(index, -grid.columns)
                Keys.onDownPressed: grid.move(index, grid.columns)
            }
        }
    }

    Card {
        width: page.columnWidth

        Item {
            width: parent.width
            height: total.implicitHeight + 52
            Accessible.role: Accessible.StaticText
            Accessible.name: Texts.format("window.timer.set.accessibility", page.viewModel.setText)

            QuietText {
                x: Theme.cardPadding
                y: 14
                width: parent.width - 2 * Theme.cardPadding - total.implicitWidth - 16
                text: Texts.text("window.timer.set.title")
                role: "section"
                color: Theme.ink2
                wrapMode: Text.NoWrap
            }
            QuietText {
                id: total

                x: parent.width - width - Theme.cardPadding
                y: 14
                text: page.viewModel.setText
                role: "control"
                color: Theme.ink2
                wrapMode: Text.NoWrap
            }
            SetBar {
                x: Theme.cardPadding
                y: parent.height - height - 14
                width: parent.width - 2 * Theme.cardPadding
                segments: page.viewModel.set
            }
        }
        Repeater {
            id: rows

            model: page.viewModel.durations.length
            DurationRow {
                required property int index
                readonly property var duration: page.viewModel.durations[index] ?? ({})

                title: duration.title ?? ""
                help: duration.help ?? ""
                dot: duration.phase ?? ""
                minutes: duration.minutes ?? 1
                valueText: duration.text ?? ""
                stepperWidth: page.stepperWidth
                onChosen: minutes => page.viewModel.setMinutes(duration.id, minutes)
            }
        }
    }
    ThemedText {
        visible: page.viewModel.isPhaseActive
        width: page.columnWidth
        leftPadding: 2
        text: Texts.text("window.timer.applies_next")
        role: "caption"
        color: Theme.ink2
    }

    Card {
        width: page.columnWidth

        ControlRow {
            title: Texts.text("window.timer.rounds.title")
            help: Texts.text("window.timer.rounds.help")

            RoundMarkers {
                anchors.verticalCenter: parent.verticalCenter
                visible: !compact
                total: page.viewModel.rounds
                done: page.viewModel.rounds
                markerSize: 16
                Accessible.ignored: true
            }
            Item {
                width: 1
                height: 1
            }
            Stepper {
                id: rounds

                anchors.verticalCenter: parent.verticalCenter
                implicitWidth: page.stepperWidth
                from: 1
                to: 12
                value: page.viewModel.rounds
                name: Texts.text("window.timer.rounds.title")
                onModified: wanted => page.viewModel.setRounds(wanted)
            }
        }
        ControlRow {
            title: Texts.text("window.timer.goal.title")
            help: page.viewModel.goalHelp

            Stepper {
                anchors.verticalCenter: parent.verticalCenter
                implicitWidth: page.stepperWidth
                from: 1
                to: 24
                value: page.viewModel.goal
                name: Texts.text("window.timer.goal.title")
                onModified: wanted => page.viewModel.setGoal(wanted)
            }
        }
    }

    Card {
        width: page.columnWidth

        ListRow {
            title: Texts.text("window.timer.auto_start_breaks.title")
            help: Texts.text(page.viewModel.overflow ? "window.timer.auto_start_breaks.help_overflow"
                                                     : "window.timer.auto_start_breaks.help")
            switchable: true
            checked: page.viewModel.autoStartBreaks
            onToggled: page.viewModel.setAutoStartBreaks(checked)
        }
        ListRow {
            title: Texts.text("window.timer.auto_start_focus.title")
            help: Texts.text("window.timer.auto_start_focus.help")
            switchable: true
            checked: page.viewModel.autoStartFocus
            onToggled: page.viewModel.setAutoStartFocus(checked)
        }
        ListRow {
            title: Texts.text("window.timer.overflow.title")
            help: Texts.text("window.timer.overflow.help")
            switchable: true
            checked: page.viewModel.overflow
            onToggled: page.viewModel.setOverflow(checked)
        }
    }
}
