import QtQuick
import Tomcatto.Appearance

/// The heading of a group, with its distances above and below. Children stand at its right end.
Item {
    id: heading

    property string text
    property real above: Theme.headingAbove
    default property alias trailing: row.data

    width: parent ? parent.width : implicitWidth
    implicitWidth: label.implicitWidth + 16 + row.implicitWidth
    implicitHeight: above + Math.max(label.implicitHeight, row.implicitHeight) + Theme.headingBelow

    ThemedText {
        id: label

        y: heading.above
        width: heading.width - row.width - 16
        text: heading.text
        role: "section"
        color: Theme.ink2
        Accessible.role: Accessible.Heading
    }
    Row {
        id: row

        anchors.right: parent.right
        anchors.verticalCenter: label.verticalCenter
        spacing: 8
    }
}
