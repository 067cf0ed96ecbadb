import QtQuick
import Tomcatto.Appearance

/// What a card shows while it has nothing: the mark or a symbol, a line, a sentence and at most one button.
Item {
    id: empty

    property string title
    property string text
    property string actionText
    /// Replaces the mark, for example "exclamationmark.triangle".
    property string symbol
    property bool hasMark: true
    property string phase: "work"
    property real textScale: Theme.textScale

    signal activated

    implicitWidth: 280
    implicitHeight: column.implicitHeight + 32

    Column {
        id: column

        anchors.centerIn: parent
        width: Math.min(parent.width - 32, 360)
        spacing: 0

        Logo {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: empty.hasMark && empty.symbol.length === 0
            size: 48
            variant: Logo.Mono
            color: Theme.phase(empty.phase).track
        }
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: empty.symbol.length > 0
            name: empty.symbol
            size: 28
            color: Theme.ink2
        }
        Item {
            width: 1
            height: empty.symbol.length > 0 ? 4 : empty.hasMark ? 8 : 0
        }
        ThemedText {
            width: parent.width
            text: empty.title
            role: "bodyStrong"
            textScale: empty.textScale
            horizontalAlignment: Text.AlignHCenter
        }
        ThemedText {
            width: parent.width
            topPadding: 2
            text: empty.text
            role: "caption"
            textScale: empty.textScale
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
        }
        Item {
            width: 1
            height: 10
            visible: empty.actionText.length > 0
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: empty.actionText.length > 0
            text: empty.actionText
            textScale: empty.textScale
            onClicked: empty.activated()
        }
    }
}
