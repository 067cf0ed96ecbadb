import QtQuick
import Tomcatto.Appearance

/// One figure in a card: its name, numbers with their units, and what they are about. One that has more to tell does so
/// under the pointer and the keyboard.
Rectangle {
    id: figure

    property alias label: heading.text
    property alias parts: value.parts
    property alias caption: below.text
    property alias tip: toolTip.text

    implicitHeight: column.implicitHeight + 27
    radius: Theme.cardRadius
    color: Theme.card
    border.color: Theme.line
    activeFocusOnTab: tip.length > 0
    Accessible.role: Accessible.StaticText
    Accessible.description: tip
    Accessible.focusable: activeFocusOnTab

    Column {
        id: column

        x: Theme.cardPadding + 1
        y: 14
        width: parent.width - 2 * x
        spacing: 1

        QuietText {
            id: heading

            width: parent.width
            role: "caption"
            color: Theme.ink2
        }
        FigureText {
            id: value

            width: parent.width
        }
        QuietText {
            id: below

            width: parent.width
            role: "caption"
            color: Theme.ink2
        }
    }
    HoverHandler {
        id: pointer
    }
    FocusRing {
        shown: figure.activeFocus
        parentRadius: figure.radius
    }
    ToolTip {
        id: toolTip

        delay: figure.activeFocus ? 0 : 600
        wanted: figure.activeFocus || pointer.hovered
    }
}
