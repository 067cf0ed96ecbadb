import QtQuick
import Tomcatto.Appearance

/// A line of small text that may report something wrong: then in the danger colour and with the warning symbol.
Item {
    id: line

    property string text
    property string role: "caption"
    property bool isError: false
    readonly property real textX: isError ? mark.width + 8 : 0

    implicitWidth: textX + Math.ceil(label.implicitWidth)
    implicitHeight: label.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Symbol {
        id: mark

        y: (Theme.lineHeight(line.role, Theme.textScale) - height) / 2
        visible: line.isError
        name: "exclamationmark.triangle"
        size: Math.round(14 * Theme.textScale)
        color: Theme.danger
    }
    QuietText {
        id: label

        x: line.textX
        width: line.width - line.textX
        text: line.text
        role: line.role
        color: line.isError ? Theme.danger : Theme.ink2
    }
}
