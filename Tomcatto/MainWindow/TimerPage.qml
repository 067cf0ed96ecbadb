import QtQuick
import Tomcatto.Appearance

/// Presets, durations, rounds, goal and the automatic switches.
ScrollPage {
    id: page

    required property var strings
    required property var viewModel

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    function spoken(key: string, value: string): string {
        return strings.revision >= 0 ? strings.formatList(key, [value]) : ""
    }

    /// That of the widest duration, so that all steppers and sliders stand in line.
    property real stepperWidth: 0

    function lineUpSteppers() {
        let width = 0
        for (let index = 0; index < rows.count; ++index)
            width = Math.max(width, rows.itemAt(index)?.naturalStepperWidth ?? 0)
        stepperWidth = width
    }

    title: words("window.page.timer")
    subtitle: words("window.timer.subtitle")
    spacing: Theme.cardGap

    Grid {
        id: grid

        property real widest: 0
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

            // qmllint disable unqualified
            PresetTile {
                required property int index
                readonly property var preset: page.viewModel.presets[index] ?? ({})

                width: (page.columnWidth - 12 * (grid.columns - 1)) / grid.columns
                height: Math.max(76, grid.tallest)
                title: preset.title ?? ""
                help: preset.help ?? ""
                text: preset.name ?? ""
                durations: preset.durations ?? []
                selected: page.viewModel.preset === preset.id
                onImplicitWidthChanged: grid.measure()
                onImplicitHeightChanged: grid.measure()
                onClicked: {
                    // A mix of one's own is made with the controls below.
                    if (!page.viewModel.choosePreset(preset.id) && rows.count > 0)
                        rows.itemAt(0).focusControl()
                }
                Keys.onLeftPressed: grid.move(index, -1)
                Keys.onRightPressed: grid.move(index, 1)
                Keys.onUpPressed: grid.move(index, -grid.columns)
                Keys.onDownPressed: grid.move(index, grid.columns)
            }
            // qmllint enable unqualified
        }

        property real tallest: 0

        function measure() {
            let width = 0
            let height = 0
            for (let index = 0; index < tiles.count; ++index) {
                width = Math.max(width, tiles.itemAt(index)?.implicitWidth ?? 0)
                height = Math.max(height, tiles.itemAt(index)?.implicitHeight ?? 0)
            }
            widest = width
            tallest = height
        }
    }

    Card {
        width: page.columnWidth

        Item {
            width: parent.width
            height: total.implicitHeight + 52
            Accessible.role: Accessible.StaticText
            Accessible.name: page.spoken("window.timer.set.accessibility", page.viewModel.setText)

            ThemedText {
                x: Theme.cardPadding
                y: 14
                width: parent.width - 2 * Theme.cardPadding - total.implicitWidth - 16
                text: page.words("window.timer.set.title")
                role: "section"
                color: Theme.ink2
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
            ThemedText {
                id: total

                x: parent.width - width - Theme.cardPadding
                y: 14
                text: page.viewModel.setText
                role: "control"
                color: Theme.ink2
                wrapMode: Text.NoWrap
                Accessible.ignored: true
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
            onItemAdded: page.lineUpSteppers()

            // qmllint disable unqualified
            DurationRow {
                required property int index
                readonly property var duration: page.viewModel.durations[index] ?? ({})

                title: duration.title ?? ""
                help: duration.help ?? ""
                dot: duration.phase ?? ""
                minutes: duration.minutes ?? 1
                valueText: duration.text ?? ""
                stepperWidth: page.stepperWidth
                lessText: page.spoken("window.timer.stepper.less", title)
                moreText: page.spoken("window.timer.stepper.more", title)
                onNaturalStepperWidthChanged: Qt.callLater(page.lineUpSteppers)
                onChosen: minutes => page.viewModel.setMinutes(duration.id, minutes)
            }
            // qmllint enable unqualified
        }
    }
    ThemedText {
        visible: page.viewModel.isPhaseActive
        width: page.columnWidth
        leftPadding: 2
        text: page.words("window.timer.applies_next")
        role: "caption"
        color: Theme.ink2
    }

    Card {
        width: page.columnWidth

        ControlRow {
            title: page.words("window.timer.rounds.title")
            help: page.words("window.timer.rounds.help")

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
                name: page.words("window.timer.rounds.title")
                decreaseName: page.spoken("window.timer.stepper.less", name)
                increaseName: page.spoken("window.timer.stepper.more", name)
                onModified: {
                    page.viewModel.setRounds(value)
                    value = Qt.binding(() => page.viewModel.rounds)
                }
            }
        }
        ControlRow {
            title: page.words("window.timer.goal.title")
            help: page.viewModel.goalHelp

            Stepper {
                anchors.verticalCenter: parent.verticalCenter
                implicitWidth: page.stepperWidth
                from: 1
                to: 24
                value: page.viewModel.goal
                name: page.words("window.timer.goal.title")
                decreaseName: page.spoken("window.timer.stepper.less", name)
                increaseName: page.spoken("window.timer.stepper.more", name)
                onModified: {
                    page.viewModel.setGoal(value)
                    value = Qt.binding(() => page.viewModel.goal)
                }
            }
        }
    }

    Card {
        width: page.columnWidth

        ListRow {
            title: page.words("window.timer.auto_start_breaks.title")
            help: page.words(page.viewModel.overflow ? "window.timer.auto_start_breaks.help_overflow"
                                                     : "window.timer.auto_start_breaks.help")
            switchable: true
            checked: page.viewModel.autoStartBreaks
            onToggled: page.viewModel.setAutoStartBreaks(checked)
        }
        ListRow {
            title: page.words("window.timer.auto_start_focus.title")
            help: page.words("window.timer.auto_start_focus.help")
            switchable: true
            checked: page.viewModel.autoStartFocus
            onToggled: page.viewModel.setAutoStartFocus(checked)
        }
        ListRow {
            title: page.words("window.timer.overflow.title")
            help: page.words("window.timer.overflow.help")
            switchable: true
            checked: page.viewModel.overflow
            onToggled: page.viewModel.setOverflow(checked)
        }
    }
}
