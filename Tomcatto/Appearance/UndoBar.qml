import QtQuick
import Tomcatto.Appearance

/// Offers to take something back for a few seconds. Waits while the pointer or the keyboard is on it.
Rectangle {
    id: bar

    property string text
    property string actionText
    property bool open: false
    property real textScale: Theme.textScale

    signal undone
    /// The time ran out: what was done stays done.
    signal expired

    implicitWidth: Math.max(280, label.implicitWidth + action.width + 44)
    implicitHeight: Math.max(48, label.implicitHeight + 24)
    visible: opacity > 0
    enabled: open
    opacity: open ? 1 : 0
    radius: Theme.cardRadius
    color: Theme.dark ? Theme.raised : Theme.card
    border.color: Theme.controlLine
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.hoverTime
            easing.type: Easing.OutCubic
        }
    }

    Timer {
        interval: Theme.undoTime
        running: bar.open && !hover.hovered && !action.activeFocus
        onTriggered: {
            bar.open = false
            bar.expired()
        }
    }
    HoverHandler {
        id: hover
    }
    ThemedText {
        id: label

        x: 16
        width: bar.width - action.width - 36
        anchors.verticalCenter: parent.verticalCenter
        text: bar.text
        role: "control"
        textScale: bar.textScale
        Accessible.ignored: true
    }
    TextButton {
        id: action

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: bar.actionText
        textScale: bar.textScale
        onClicked: {
            bar.open = false
            bar.undone()
        }
    }
}
