import QtQuick
import Tomcatto.Appearance

/// A symbol without a box. `text` is its name for a screen reader and its tooltip.
PressButton {
    id: control

    property real symbolSize: 17
    property bool hasTooltip: true

    implicitWidth: 32
    implicitHeight: 32
    padding: 0
    ink: enabled ? Theme.ink2 : Theme.disabled

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: control.symbol
            size: control.symbolSize
            color: control.ink
        }
    }

    ToolTip {
        text: control.text
        wanted: control.hasTooltip && control.enabled && control.hovered && !control.down
    }
}
