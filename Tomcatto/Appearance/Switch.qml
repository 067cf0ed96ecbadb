import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// A switch on its own. In a list use `ListRow` with `switchable`, whose whole width can be hit.
T.Switch {
    id: control

    property string name
    property string phase: "work"
    property bool showFocus: visualFocus

    function pressedByKey(event: KeyEvent) {
        event.accepted = true
        if (!event.isAutoRepeat) {
            toggle()
            toggled()
        }
    }

    implicitWidth: 40
    implicitHeight: 32
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.checkable: true
    Accessible.checked: checked
    Keys.onReturnPressed: event => pressedByKey(event)
    Keys.onEnterPressed: event => pressedByKey(event)

    indicator: SwitchTrack {
        y: (control.height - height) / 2
        checked: control.checked
        phase: control.phase
        focused: control.showFocus
    }
}
