import QtQuick
import Tomcatto.Appearance

/// One key of a shortcut.
Rectangle {
    id: cap

    property string text

    implicitWidth: Math.max(implicitHeight, label.implicitWidth + 14)
    implicitHeight: Math.max(26, label.implicitHeight + 8)
    radius: Theme.keyCapRadius
    color: Theme.sunk
    border.color: Theme.line

    ThemedText {
        id: label

        anchors.centerIn: parent
        text: cap.text
        role: "section"
        wrapMode: Text.NoWrap
    }
}
