import QtQuick
import Tomcatto.Appearance

/// The place that adds a video, by pressing it or by dropping a file on it.
PressButton {
    id: control

    property string hint
    /// A file hovers over it.
    property bool dropping: false

    implicitWidth: 205
    implicitHeight: 115
    radius: Theme.thumbnailRadius
    fill: dropping ? Theme.work.wash : "transparent"
    Accessible.description: hint

    contentItem: Item {
        DashedFrame {
            x: -control.leftPadding
            width: control.width
            height: control.height
            radius: control.radius
            color: control.dropping ? Theme.work.solid : Theme.controlLine
        }
        Column {
            anchors.centerIn: parent
            width: parent.width - 24
            spacing: 4

            Symbol {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "plus"
                size: 22
                color: Theme.work.text
            }
            QuietText {
                width: parent.width
                text: control.text
                role: "section"
                color: Theme.work.text
                horizontalAlignment: Text.AlignHCenter
            }
            QuietText {
                width: parent.width
                text: control.hint
                role: "caption"
                color: Theme.ink2
                horizontalAlignment: Text.AlignHCenter
            }
        }
    }
}
