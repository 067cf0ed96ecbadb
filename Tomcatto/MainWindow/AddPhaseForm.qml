pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The card that adds a focus phase which was forgotten: day, start and minutes, and the times they make.
Card {
    id: card

    required property AddPhaseViewModel form
    readonly property real room: width - 2 * padding
    readonly property bool wide: fields.oneLine + 12 + buttons.implicitWidth <= room

    function takeFocus() {
        start.forceActiveFocus(Qt.OtherFocusReason)
        start.selectAll()
    }

    padding: 16
    spacing: 12
    Accessible.role: Accessible.Grouping
    Accessible.name: heading.text
    Keys.onEscapePressed: form.close()

    component Labelled: Column {
        property alias text: label.text

        spacing: 6

        ThemedText {
            id: label

            role: "captionMedium"
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
    }

    ThemedText {
        id: heading

        text: Texts.text("stats.add.title")
        role: "section"
        color: Theme.ink2
        Accessible.role: Accessible.Heading
    }
    Item {
        width: card.room
        height: card.wide ? fields.height : fields.height + 12 + buttons.height

        Flow {
            id: fields

            readonly property real oneLine: dayField.width + startField.width + minutesField.width + 24

            width: Math.min(oneLine, card.room)
            spacing: 12

            Labelled {
                id: dayField

                text: Texts.text("stats.add.label.day")

                PopUpButton {
                    width: Math.min(card.room, Math.max(184 * Theme.textScale, Math.ceil(dayWidth.advanceWidth) + 46))
                    name: Texts.text("stats.add.label.day")
                    model: card.form.dayTexts
                    currentIndex: card.form.dayIndex
                    onActivated: index => card.form.chooseDay(index)

                    TextMetrics {
                        id: dayWidth

                        font: Theme.font("control", Theme.textScale)
                        text: card.form.dayTexts[card.form.dayIndex] ?? ""
                    }
                }
            }
            Labelled {
                id: startField

                text: Texts.text("stats.add.label.start")

                Field {
                    id: start

                    width: 84 * Theme.textScale
                    name: Texts.text("stats.add.label.start")
                    refusal: card.form.isStartRefused ? card.form.line : ""
                    onTextEdited: card.form.writeStart(text)
                    onAccepted: card.form.add()

                    // What is typed meanwhile is newer than what comes back.
                    Binding on text {
                        when: !start.activeFocus
                        value: card.form.startText
                        restoreMode: Binding.RestoreNone
                    }
                }
            }
            Labelled {
                id: minutesField

                text: Texts.text("stats.add.label.minutes")

                Stepper {
                    id: minutes

                    name: Texts.text("stats.add.label.minutes")
                    value: card.form.minutes
                    from: card.form.leastMinutes
                    to: card.form.mostMinutes
                    onModified: wanted => card.form.setMinutes(wanted)
                    Keys.onReturnPressed: {
                        takeTyped()
                        card.form.add()
                    }
                    Keys.onEnterPressed: {
                        takeTyped()
                        card.form.add()
                    }
                }
            }
        }
        Row {
            id: buttons

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            spacing: 12

            TextButton {
                anchors.verticalCenter: parent.verticalCenter
                text: Texts.text("stats.add.cancel")
                onClicked: card.form.close()
            }
            PushButton {
                text: Texts.text("stats.add.confirm")
                prominent: true
                enabled: !card.form.isRefused
                onClicked: card.form.add()
            }
        }
    }
    NoticeLine {
        width: card.room
        text: card.form.line
        isError: card.form.isRefused
        role: isError ? "captionMedium" : "caption"
    }
    Notice {
        text: card.form.isRefused ? card.form.line : ""
    }
}
