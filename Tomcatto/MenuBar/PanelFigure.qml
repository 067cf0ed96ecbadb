import QtQuick
import Tomcatto.Appearance

/// One figure in a small card: numbers with their units over what they count.
Rectangle {
    property alias parts: value.parts
    property alias label: caption.text

    radius: Theme.cardRadius
    color: Theme.card
    border.color: Theme.line
    Accessible.role: Accessible.StaticText

    FigureText {
        id: value

        x: 13
        y: 11
        width: parent.width - 22
        role: "figureSmall"
        unitRole: "figureUnitSmall"
        textScale: 1
        gap: 3
    }
    QuietText {
        id: caption

        x: 13
        y: 36
        width: parent.width - 20
        role: "micro"
        textScale: 1
        color: Theme.ink2
    }
}
