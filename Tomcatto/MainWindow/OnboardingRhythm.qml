import QtQuick
import Tomcatto.Appearance

/// The second step: choose a preset. Arrow keys move, Space chooses.
Item {
    id: step

    required property string title
    required property string text
    required property string footer
    required property var viewModel

    implicitHeight: column.y + column.implicitHeight + 12

    OnboardingHeading {
        id: heading

        x: 40
        y: 43
        width: step.width - 80
        title: step.title
        text: step.text
    }
    Column {
        id: column

        x: 40
        y: Math.max(131, heading.y + heading.implicitHeight + 24)
        width: step.width - 80
        spacing: 11

        Repeater {
            id: rows

            property real figureWidth: 0

            function lineUp() {
                let width = 0
                for (let index = 0; index < count; ++index)
                    width = Math.max(width, itemAt(index)?.naturalFigureWidth ?? 0)
                figureWidth = width
            }

            function move(index: int) {
                const target = itemAt(index)
                if (target)
                    target.forceActiveFocus(Qt.TabFocusReason)
            }

            model: step.viewModel.presets.length
            onItemAdded: lineUp()

            // qmllint disable unqualified
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
                onNaturalFigureWidthChanged: rows.lineUp()
                onClicked: step.viewModel.choosePreset(preset.id)
                Keys.onUpPressed: rows.move(index - 1)
                Keys.onDownPressed: rows.move(index + 1)
            }
            // qmllint enable unqualified
        }
        ThemedText {
            width: parent.width
            topPadding: 4
            text: step.footer
            role: "caption"
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
