import QtQuick
import Tomcatto.Appearance

/// Two pixels wide, two pixels outside its parent.
Rectangle {
    property bool shown: false
    property real parentRadius: 0

    anchors.fill: parent
    anchors.margins: -4
    visible: shown
    color: "transparent"
    radius: parentRadius + 4
    border.width: 2
    border.color: Theme.focus
}
