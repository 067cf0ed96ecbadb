import QtQuick
import Tomcatto.Appearance

/// Offers to take something back for a few seconds. Waits while the pointer or the keyboard is on it.
Rectangle {
    id: bar

    property string text
    property bool open: false

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

    Behavior on opacity { Glide { duration: Theme.hoverTime } }

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
    }
    Notice {
        text: bar.open ? bar.text : ""
    }
    TextButton {
        id: action

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: Texts.text("window.videos.undo")
        onClicked: {
            bar.open = false
            bar.undone()
        }
    }
}
