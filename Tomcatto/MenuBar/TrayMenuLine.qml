import QtQuick
import Tomcatto.Appearance

/// A line of the menu, or a separator. Highlighted while it is the current one.
Item {
    id: line

    /// As the view model describes it.
    required property var entry
    property bool isCurrent: false
    readonly property bool isSeparator: entry.key.length === 0

    /// The pointer moved, and let a button go, at a place of the parent: a press may be dragged to another line.
    signal pointed(place: point)
    signal letGo(place: point)
    signal pointerLeft
    signal chosen

    implicitWidth: isSeparator ? 0 : label.implicitWidth
    implicitHeight: isSeparator ? 9 : Math.max(30, label.implicitHeight + 10)
    enabled: entry.isEnabled
    onIsCurrentChanged: if (isCurrent) forceActiveFocus()
    Component.onCompleted: if (isCurrent) forceActiveFocus()
    Accessible.role: isSeparator ? Accessible.Separator : Accessible.MenuItem
    Accessible.name: entry.text
    Accessible.focusable: !isSeparator
    Accessible.checkable: entry.isToggle
    Accessible.checked: entry.isChecked
    Accessible.onPressAction: chosen()

    Rectangle {
        visible: line.isSeparator
        y: 4
        width: parent.width
        height: 1
        color: Theme.line
    }
    Rectangle {
        visible: line.isCurrent
        anchors.fill: parent
        radius: Theme.segmentRadius
        color: Theme.hover
        border.width: Theme.highContrast ? 1 : 0
        border.color: Theme.controlLine
    }
    QuietText {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        leftPadding: 12
        rightPadding: 36
        text: line.entry.text
        role: "control"
        color: line.entry.isEnabled ? Theme.ink : Theme.disabled
    }
    Symbol {
        visible: line.entry.isChecked
        x: parent.width - width - 12
        anchors.verticalCenter: parent.verticalCenter
        name: "checkmark"
        size: 14
        color: Theme.work.text
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        onPositionChanged: mouse => line.pointed(mapToItem(line.parent, mouse.x, mouse.y))
        onReleased: mouse => line.letGo(mapToItem(line.parent, mouse.x, mouse.y))
        onExited: line.pointerLeft()
    }
}
