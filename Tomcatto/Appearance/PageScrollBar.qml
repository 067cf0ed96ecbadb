import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// The bar at the right edge of a page, there only when there is something to scroll.
T.ScrollBar {
    id: bar

    implicitWidth: 10
    padding: 2
    visible: size < 1
    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: bar.pressed || bar.hovered ? Theme.ink3 : Theme.controlLine
        opacity: bar.active ? 1 : 0.5
    }
}
