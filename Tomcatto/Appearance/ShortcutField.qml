pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// The row of one global shortcut: its keys, or the recording of new ones. It draws the states; the recorder that owns
/// the keyboard meanwhile is the caller's. A refusal goes into `notice` and leaves the recording on.
ListRow {
    id: row

    /// One text to a key cap; empty when not set.
    property list<string> keys
    /// The action with its keys, for a screen reader.
    property string name
    property bool recording: false
    property string notSetText
    property string changeText
    property string recordText
    property string clearText
    property string pressText
    property string cancelText

    signal changeRequested
    signal clearRequested

    ThemedText {
        visible: !row.recording && row.keys.length === 0
        text: row.notSetText
        color: Theme.ink2
        Accessible.name: row.name
        wrapMode: Text.NoWrap
    }
    Row {
        visible: !row.recording && row.keys.length > 0
        spacing: 4
        Accessible.role: Accessible.StaticText
        Accessible.name: row.name

        Repeater {
            model: row.keys

            KeyCap {
                required property string modelData

                text: modelData
            }
        }
    }
    PushButton {
        id: change

        visible: !row.recording
        text: row.keys.length > 0 ? row.changeText : row.recordText
        Accessible.description: row.title
        onClicked: row.changeRequested()
    }
    IconButton {
        // Keeps its place when there is nothing to clear, so that the buttons of all rows stand in line.
        opacity: row.keys.length > 0 ? 1 : 0
        enabled: row.keys.length > 0
        visible: !row.recording
        symbol: "xmark"
        symbolSize: 14
        text: row.clearText
        Accessible.description: row.title
        onClicked: {
            // It cannot keep the keyboard itself, with nothing left to clear.
            if (activeFocus)
                change.forceActiveFocus(visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason)
            row.clearRequested()
        }
    }
    Rectangle {
        visible: row.recording
        implicitWidth: prompt.implicitWidth + 28
        implicitHeight: Math.max(32, prompt.implicitHeight + 12)
        radius: Theme.buttonRadius
        color: Theme.card
        border.width: 2
        border.color: Theme.focus

        Row {
            id: prompt

            anchors.centerIn: parent
            spacing: 10

            ThemedText {
                anchors.verticalCenter: parent.verticalCenter
                text: row.pressText
                role: "control"
                wrapMode: Text.NoWrap
            }
            ThemedText {
                anchors.verticalCenter: parent.verticalCenter
                text: row.cancelText
                role: "caption"
                color: Theme.ink2
                wrapMode: Text.NoWrap
            }
        }
    }
}
