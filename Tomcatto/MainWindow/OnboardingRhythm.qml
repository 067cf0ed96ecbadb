pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The second step: choose a preset. Arrow keys move, Space chooses.
Item {
    id: step

    required property OnboardingViewModel viewModel

    implicitHeight: column.y + column.implicitHeight + 12

    OnboardingHeading {
        id: heading

        y: 43
        title: Texts.text("onboarding.rhythm.title")
        text: Texts.text("onboarding.rhythm.body")
    }
    Column {
        id: column

        x: 40
        y: Math.max(131, heading.y + heading.implicitHeight + 24)
        width: step.width - 80
        spacing: 11

        Repeater {
            id: rows

            readonly property real figureWidth: Math.max(0, ...Array.from({length: count},
                (_, index) => (itemAt(index) as PresetRow)?.naturalFigureWidth ?? 0))

            function move(index: int) {
                const target = itemAt(index)
                if (target)
                    target.forceActiveFocus(Qt.TabFocusReason)
            }

            model: step.viewModel.presets.length

            PresetRow {
                required property int index
                readonly property var preset: step.viewModel.presets[index] ?? ({})

                width: column.width
                title: preset.title ?? ""
                help: preset.help ?? ""
                text: preset.name ?? ""
                durations: preset.durations ?? ""
                segments: preset.set ?? []
                selected: step.viewModel.preset === preset.id
                figureWidth: rows.figureWidth
                onClicked: step.viewModel.choosePreset(preset.id)
                Keys.onUpPressed: rows.move(index - 1)
                Keys.onDownPressed: rows.move(index + 1)
            }
        }
        ThemedText {
            width: parent.width
            topPadding: 4
            text: Texts.text("onboarding.rhythm.footer")
            role: "caption"
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
