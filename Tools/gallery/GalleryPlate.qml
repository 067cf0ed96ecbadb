import QtQuick
import Tomcatto.Appearance

/// A titled plate that holds specimens.
Rectangle {
    id: plate

    property string title
    default property alias content: body.data

    color: Theme.paper
    radius: 14
    border.color: Theme.line

    ThemedText {
        x: 20
        y: 20
        text: plate.title
        role: "primary"
    }
    Item {
        id: body

        x: 20
        y: 54
        width: parent.width - 40
        height: parent.height - 74
    }
}
