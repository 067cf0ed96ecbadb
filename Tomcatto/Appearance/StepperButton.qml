import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// One side of a `Stepper`: steps when pressed and again while held.
T.AbstractButton {
    id: control

    property string symbol
    /// False at the bound. Disabling a button that is held would leave its repeat timer running.
    property bool available: true

    signal stepped

    implicitWidth: 32
    implicitHeight: 32
    hoverEnabled: true
    // The stepper as a whole takes the keyboard.
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    autoRepeat: true
    autoRepeatDelay: 400
    autoRepeatInterval: 80
    // Sent again with every repeat.
    onPressed: if (available) stepped()
    Accessible.onPressAction: if (available) stepped()

    background: Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: Theme.keyCapRadius
        color: !control.available || !control.enabled ? "transparent" : control.down ? Theme.pressed : control.hovered ? Theme.hover : "transparent"
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: control.symbol
            size: 16
            color: control.available && control.enabled ? Theme.ink2 : Theme.disabled
        }
    }
}
