pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// One ended phase of the log, part of a card that its day's phases make; the day's first one has the heading above it.
/// With the pointer or the keyboard on it, it has a button that removes the phase.
FocusScope {
    id: row

    required property int index
    required property string phaseId
    required property string phase
    required property string title
    required property string times
    required property string length
    required property string outcome
    required property string spoken
    required property string day
    required property string dayCount
    required property bool isDone
    required property bool isLast
    readonly property bool isFirst: day.length > 0
    /// Where there is no room for one line, times and length stand below name and outcome.
    readonly property bool stacked: width < 590 * Theme.textScale
    readonly property real rowHeight: stacked ? 2 * lineHeight + 20 : Math.max(44, lineHeight + 20)
    readonly property real lineHeight: Theme.lineHeight("body", Theme.textScale)
    readonly property real headingHeight: isFirst ? (index === 0 ? 16 : 20) + Theme.lineHeight("section", Theme.textScale) + 8 : 0
    readonly property bool armed: hover.hovered || activeFocus
    /// The middle of the only line or of the first of two.
    readonly property real firstMiddle: body.y + (stacked ? 10 + lineHeight / 2 : rowHeight / 2)
    readonly property real secondMiddle: stacked ? firstMiddle + lineHeight : firstMiddle

    /// The phase is to be removed; by the keyboard, whose place it was, or not.
    signal removed(string id, bool byKey)
    /// The keyboard goes so many rows further.
    signal moved(int step)

    implicitHeight: headingHeight + rowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)
    // Held, it would empty the list.
    Keys.onDeletePressed: event => {
        if (!event.isAutoRepeat)
            removed(phaseId, true)
    }

    component Words: ThemedText {
        height: row.lineHeight
        wrapMode: Text.NoWrap
        Accessible.ignored: true
    }

    // Most rows have none of these.
    Wanted {
        when: row.isFirst

        Item {
            width: row.width
            height: row.headingHeight

            ThemedText {
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 8
                text: row.day
                role: "section"
                color: Theme.ink2
                Accessible.role: Accessible.Heading
            }
            ThemedText {
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 8
                text: row.dayCount
                role: "caption"
                color: Theme.ink2
            }
        }
    }
    Item {
        id: body

        y: row.headingHeight
        width: row.width
        height: row.rowHeight
        clip: true

        // Of one card, which goes on above and below.
        Rectangle {
            y: row.isFirst ? 0 : -radius
            width: parent.width
            height: parent.height - y + (row.isLast ? 0 : radius)
            radius: Theme.cardRadius
            color: row.armed ? Theme.blend(Qt.alpha(Theme.hover, 1), Theme.card, Theme.hover.a) : Theme.card
            border.color: Theme.line
        }
        Rectangle {
            visible: !row.isFirst
            width: parent.width
            height: 1
            color: Theme.line
        }
        HoverHandler {
            id: hover
        }
        // Within what the pointer is looked for in: from above it, it would take the pointer away.
        Wanted {
            when: row.armed

            IconButton {
                x: row.width - width - 12
                y: (row.rowHeight - height) / 2
                focus: true
                focusPolicy: Qt.NoFocus
                showFocus: activeFocus
                symbol: "trash"
                text: Texts.format("stats.log.remove.accessibility", row.spoken)
                help: Texts.text("stats.log.remove")
                onClicked: row.removed(row.phaseId, activeFocus)
            }
        }
    }
    Rectangle {
        x: 17
        y: row.firstMiddle - 5
        width: 10
        height: 10
        radius: 5
        color: Theme.phase(row.phase).solid
    }
    Words {
        x: 39
        y: row.firstMiddle - height / 2
        text: row.title
        role: "rowTitle"
    }
    Words {
        x: row.stacked ? 39 : 182 * Theme.textScale
        y: row.secondMiddle - height / 2
        text: row.times
        color: Theme.ink2
    }
    Words {
        x: row.stacked ? 39 + 141 * Theme.textScale : 323 * Theme.textScale
        y: row.secondMiddle - height / 2
        text: row.length
    }
    Words {
        id: outcomeText

        x: row.width - width - (row.armed ? 56 : 16)
        y: row.firstMiddle - height / 2
        text: row.outcome
        font: Theme.sizedFont(Math.round(13 * Theme.textScale), row.isDone ? Font.Medium : Font.Normal, 0)
        color: row.isDone ? Theme.ink : Theme.ink2
    }
    Symbol {
        visible: row.isDone
        x: outcomeText.x - width - 7
        y: row.firstMiddle - height / 2
        name: "checkmark"
        size: 14
        color: Theme.phase(row.phase).text
    }
}
