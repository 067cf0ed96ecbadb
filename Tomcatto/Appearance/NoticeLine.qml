import QtQuick
import Tomcatto.Appearance

/// A line of small text that may report something wrong: then in the danger colour and with the warning symbol.
Item {
    id: line

    property string text
    property string role: "caption"
    property bool isError: false
    property real textScale: Theme.textScale
    readonly property real textX: isError ? mark.width + 8 : 0

    implicitWidth: textX + Math.ceil(label.implicitWidth)
    implicitHeight: label.implicitHeight

    Symbol {
        id: mark

        y: (Theme.lineHeight(line.role, line.textScale) - height) / 2
        visible: line.isError
        name: "exclamationmark.triangle"
        size: Math.round(14 * line.textScale)
        color: Theme.danger
    }
    ThemedText {
        id: label

        x: line.textX
        width: line.width - line.textX
        text: line.text
        role: line.role
        textScale: line.textScale
        color: line.isError ? Theme.danger : Theme.ink2
        Accessible.ignored: true
    }
}
