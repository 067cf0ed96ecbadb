import QtQuick
import Tomcatto.Appearance

/// Tells for a few seconds what was done, and offers to take it back, over a page that fades behind it. Waits while the
/// pointer or the keyboard is on it. Fills its parent's lower edge; the bar itself is as wide as the page's column.
Item {
    id: root

    property string text
    property bool open: false
    property bool offersUndo: true
    property bool isError: false
    property real columnWidth: width
    /// Milliseconds that it stands.
    property int time: Theme.undoTime

    signal undone
    /// The time ran out: what was done stays done.
    signal expired

    function undo() {
        open = false
        undone()
    }

    implicitWidth: 280
    implicitHeight: Math.max(120, bar.height + 32)
    visible: opacity > 0
    enabled: open
    opacity: open ? 1 : 0

    Behavior on opacity { Glide { duration: Theme.hoverTime } }

    Timer {
        interval: root.time
        running: root.open && !hover.hovered && !action.activeFocus
        onTriggered: {
            root.open = false
            root.expired()
        }
    }
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0; color: Qt.alpha(Theme.paper, 0) }
            GradientStop { position: 0.6; color: Theme.paper }
        }
    }
    Rectangle {
        id: bar

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 16
        width: root.columnWidth
        height: Math.max(48, label.implicitHeight + 28)
        radius: Theme.cardRadius
        color: Theme.ink

        HoverHandler {
            id: hover
        }
        // What lies under the bar is not pressed through it.
        MouseArea {
            anchors.fill: parent
        }
        Symbol {
            id: mark

            x: 16
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isError
            name: "exclamationmark.triangle"
            color: Theme.paper
        }
        ThemedText {
            id: label

            x: root.isError ? 40 : 16
            width: bar.width - x - (root.offersUndo ? action.width + 20 : 16)
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            role: "rowTitle"
            color: Theme.paper
        }
        TextButton {
            id: action

            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            visible: root.offersUndo
            text: Texts.text("window.videos.undo")
            role: "section"
            ink: Theme.dark ? "#A84A12" : "#FFB780"
            hoverTint: Qt.alpha(Theme.paper, 0.1)
            pressedTint: Qt.alpha(Theme.paper, 0.18)
            focusColor: ink
            onClicked: root.undo()
        }
    }
    Notice {
        text: root.open ? root.text : ""
    }
}
