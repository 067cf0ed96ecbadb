import QtQuick
import Tomcatto.Appearance

/// One page in the window's sidebar. Compact shows the symbol alone, its text as a tooltip.
PressButton {
    id: control

    property bool selected: false
    property bool compact: false

    implicitHeight: compact ? 36 : Math.max(36, label.implicitHeight + 12)
    leftPadding: compact ? 0 : 12
    rightPadding: compact ? 0 : 12
    radius: Theme.buttonRadius
    fill: selected ? Theme.selectedNav : "transparent"
    lineColor: selected && Theme.highContrast ? Theme.controlLine : "transparent"
    ink: selected ? Theme.work.text : Theme.ink2
    Accessible.checkable: true
    Accessible.checked: selected

    contentItem: null

    Item {
        anchors.fill: parent
        anchors.leftMargin: control.leftPadding
        anchors.rightMargin: control.rightPadding

        Symbol {
            x: control.compact ? (parent.width - width) / 2 : 0
            anchors.verticalCenter: parent.verticalCenter
            name: control.symbol
            size: 18
            color: control.ink
        }
        QuietText {
            id: label

            visible: !control.compact
            x: 28
            width: parent.width - x
            anchors.verticalCenter: parent.verticalCenter
            text: control.text
            role: control.selected ? "bodyStrong" : "rowTitle"
            color: control.ink
        }
    }

    ToolTip {
        text: control.text
        wanted: control.compact && control.hovered && !control.down
        targetX: control.width / 2
    }
}
