import QtQuick
import Tomcatto.Appearance

/// A symbol without a box. `text` is its name for a screen reader.
PressButton {
    id: control

    property bool hasTooltip: true
    /// The tooltip: what a press does. The name where that says it already.
    property string help: text

    implicitWidth: 32
    implicitHeight: 32
    padding: 0
    symbolSize: 17
    ink: enabled ? Theme.ink2 : Theme.disabled
    Accessible.description: help === text ? "" : help

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: control.symbol
            size: control.symbolSize
            color: control.ink
        }
    }

    ToolTip {
        text: control.help
        textScale: control.textScale
        wanted: control.hasTooltip && control.enabled && control.hovered && !control.down
    }
}
