import QtQuick
import Tomcatto.Appearance

/// One component with its caption below.
Column {
    id: specimen

    property string caption
    default property alias content: holder.data

    spacing: 6

    Item {
        id: holder

        anchors.horizontalCenter: parent.horizontalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
    ThemedText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: specimen.caption
        role: "micro"
        color: Theme.ink2
        visible: text.length > 0
    }
}
