pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// One preset of the timer page, or the mix of one's own.
PresetChoice {
    id: tile

    /// Minutes of focus, short and long break; empty: the help stands in their place.
    property var durations: []
    readonly property int inset: 14

    implicitHeight: Math.max(76, inset + texts.implicitHeight + inset)
    implicitWidth: Math.max(titleText.implicitWidth + 24, figures.implicitWidth) + 2 * inset

    Rectangle {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 14
        visible: tile.selected
        width: 18
        height: 18
        radius: 9
        color: Theme.work.button

        Symbol {
            anchors.centerIn: parent
            name: "checkmark"
            size: 12
            color: Theme.work.buttonText
        }
    }
    Column {
        id: texts

        x: tile.inset
        y: tile.inset
        width: tile.width - 2 * tile.inset
        spacing: 8

        QuietText {
            id: titleText

            width: Math.min(implicitWidth, parent.width - 24)
            text: tile.title
            role: "bodyStrong"
        }
        Row {
            id: figures

            visible: tile.durations.length > 0
            spacing: 10

            Repeater {
                model: ["work", "shortBreak", "longBreak"]

                Row {
                    required property int index
                    required property string modelData

                    spacing: 6

                    Rectangle {
                        anchors.verticalCenter: parent.verticalCenter
                        width: 8
                        height: 8
                        radius: 4
                        color: Theme.phase(parent.modelData).solid
                    }
                    QuietText {
                        text: tile.durations[parent.index] ?? ""
                        color: Theme.ink2
                        wrapMode: Text.NoWrap
                    }
                }
            }
        }
        QuietText {
            visible: tile.durations.length === 0
            width: parent.width
            text: tile.help
            font: Theme.sizedFont(Math.round(13 * Theme.textScale), Font.Normal, 0)
            color: Theme.ink2
        }
    }
    ToolTip {
        text: tile.help
        wanted: tile.durations.length > 0 && tile.hovered && !tile.down
        targetX: tile.width / 2
    }
}
