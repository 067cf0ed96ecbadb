import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// A line to type into. What is typed stands until the caller takes it.
T.TextField {
    id: control

    property string name
    /// What is wrong with the text; the border tells the eye, this a screen reader.
    property string refusal
    property bool showFocus: activeFocus

    implicitWidth: 84
    implicitHeight: Math.max(32, Theme.lineHeight("control", Theme.textScale) + 14)
    leftPadding: 12
    rightPadding: 8
    font: Theme.font("control", Theme.textScale)
    color: enabled ? Theme.ink : Theme.disabled
    selectionColor: Theme.selectedNav
    selectedTextColor: Theme.ink
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    renderType: Text.NativeRendering
    Accessible.name: name
    Accessible.description: refusal

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.card
        border.width: control.refusal.length > 0 ? 2 : 1
        border.color: control.refusal.length > 0 ? Theme.danger : Theme.line

        FocusRing {
            shown: control.showFocus
            parentRadius: parent.radius
        }
    }
}
