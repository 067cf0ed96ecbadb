pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// What stands over the rows of the log: its filter, the button and the form that add a phase, and what is said where
/// there are no rows.
Item {
    id: heading

    required property SessionLogViewModel log
    readonly property bool wide: label.implicitWidth + 16 + filter.implicitWidth + 12 + add.implicitWidth <= width

    /// Where the keyboard goes when its row is gone.
    function takeFocus() {
        add.forceActiveFocus(Qt.OtherFocusReason)
    }

    /// Takes the height of what is shown now, not with the next frame.
    function layOut() {
        column.forceLayout()
    }

    implicitHeight: column.y + column.height

    ThemedText {
        id: label

        y: 24 + (add.height - height) / 2
        text: Texts.text("stats.log.title")
        role: "section"
        color: Theme.ink2
        wrapMode: Text.NoWrap
        Accessible.role: Accessible.Heading
    }
    Segmented {
        id: filter

        x: heading.wide ? add.x - 12 - width : 0
        y: heading.wide ? 24 : 24 + add.height + 12
        width: Math.min(implicitWidth, heading.width)
        texts: heading.log.filterTexts
        currentIndex: heading.log.filterIndex
        name: Texts.text("stats.log.filter.accessibility")
        onActivated: index => heading.log.selectFilter(index)
    }
    PushButton {
        id: add

        x: heading.width - width
        y: 24
        height: Math.max(34, implicitHeight)
        symbol: "plus"
        text: Texts.text("stats.add.button")
        onClicked: heading.log.openForm()
    }
    Column {
        id: column

        y: (heading.wide ? add.y + add.height : filter.y + filter.height)
        width: heading.width

        Item {
            width: parent.width
            height: visible ? form.implicitHeight + 16 : 0
            visible: heading.log.form.isOpen
            onVisibleChanged: {
                if (visible)
                    opened.start()
                else
                    heading.takeFocus()
            }

            // Its texts come with it, in the same turn.
            Timer {
                id: opened

                interval: 0
                onTriggered: form.takeFocus()
            }
            AddPhaseForm {
                id: form

                y: 16
                width: parent.width
                form: heading.log.form
            }
        }
        Item {
            width: parent.width
            height: visible ? 16 + card.height : 0
            visible: heading.log.isEmpty

            Card {
                id: card

                y: 16
                width: parent.width

                EmptyState {
                    width: parent.width
                    height: Math.max(heading.log.hasHistory ? 168 : 86, implicitHeight)
                    hasMark: heading.log.hasHistory
                    title: heading.log.emptyTitle
                    text: heading.log.emptyHelp
                }
            }
        }
    }
    Notice {
        text: heading.log.spoken
    }
}
