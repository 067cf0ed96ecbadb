import QtQuick
import Tomcatto.Appearance

/// What the pill looks like, as a picture: running when it has a progress, at rest otherwise. Said nowhere.
Rectangle {
    id: pill

    property string time
    /// Elapsed part, 0 to 1.
    property real progress: 0
    property bool resting: false
    readonly property real textX: 10 + 18 + 4

    implicitWidth: time.length > 0 ? textX + label.implicitWidth + 10 : 38
    implicitHeight: 24
    radius: height / 2
    color: Theme.dark ? Qt.rgba(1, 1, 1, 0.10) : Qt.rgba(0, 0, 0, 0.07)

    Item {
        width: pill.width * pill.progress
        height: pill.height
        clip: true

        Rectangle {
            width: pill.width
            height: pill.height
            radius: pill.radius
            color: Theme.dark ? Qt.rgba(1, 0xB7 / 255, 0x80 / 255, 0.30) : Qt.rgba(0xEE / 255, 0x7A / 255, 0x3A / 255, 0.32)
        }
    }
    Logo {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        size: 18
        variant: Logo.SmallColour
    }
    TickingText {
        id: label

        visible: pill.time.length > 0
        x: pill.textX
        anchors.verticalCenter: parent.verticalCenter
        text: pill.time
        font: Theme.sizedFont(13, Font.Bold, 0)
        opacity: pill.resting ? 0.5 : 1
        name: ""
    }
}
