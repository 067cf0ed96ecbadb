import QtQuick
import Tomcatto.Appearance

/// A whole number with a button on each side. Held buttons and keys repeat. With the keyboard: arrows one step, page
/// keys five, Home and End the bounds, digits type a number that Return or leaving takes.
Item {
    id: control

    property int value: 0
    property int from: 0
    property int to: 100
    property int stepSize: 1
    /// The value as the caller writes it, for example "25 min".
    property string text: value
    property string name
    property bool showFocus: activeFocus && byKey
    property bool byKey: false
    property string typed
    // A screen reader takes the bounds of a spin box from these.
    readonly property int minimumValue: from
    readonly property int maximumValue: to

    /// The user wants another value, which is the caller's to set.
    signal modified(int wanted)

    function change(wanted: int) {
        const bounded = Math.max(from, Math.min(to, wanted))
        if (bounded !== value)
            modified(bounded)
    }

    function takeTyped() {
        const number = parseInt(typed, 10)
        typed = ""
        if (!isNaN(number))
            change(number)
    }

    function take(event: KeyEvent): bool {
        switch (event.key) {
        case Qt.Key_Up:
        case Qt.Key_Right:
        case Qt.Key_Plus:
            change(value + stepSize)
            return true
        case Qt.Key_Down:
        case Qt.Key_Left:
        case Qt.Key_Minus:
            change(value - stepSize)
            return true
        case Qt.Key_PageUp:
            change(value + 5 * stepSize)
            return true
        case Qt.Key_PageDown:
            change(value - 5 * stepSize)
            return true
        case Qt.Key_Home:
            change(from)
            return true
        case Qt.Key_End:
            change(to)
            return true
        case Qt.Key_Backspace:
            typed = typed.slice(0, -1)
            return true
        case Qt.Key_Return:
        case Qt.Key_Enter:
            takeTyped()
            return true
        case Qt.Key_Escape:
            if (typed.length === 0)
                return false
            typed = ""
            return true
        }
        if (event.text >= "0" && event.text <= "9" && event.text.length === 1) {
            typed = (typed + event.text).slice(-4)
            return true
        }
        return false
    }

    implicitWidth: 64 + Math.max(64, Math.ceil(label.implicitWidth) + 16)
    implicitHeight: Math.max(32, Theme.lineHeight("section", Theme.textScale) + 14)
    activeFocusOnTab: true
    Accessible.role: Accessible.SpinBox
    Accessible.name: name
    Accessible.description: text
    Accessible.focusable: true
    Accessible.onIncreaseAction: change(value + stepSize)
    Accessible.onDecreaseAction: change(value - stepSize)
    onActiveFocusChanged: {
        if (!activeFocus) {
            byKey = false
            takeTyped()
        }
    }
    Keys.onPressed: event => {
        byKey = true
        event.accepted = take(event)
    }
    Keys.onReleased: byKey = true

    Rectangle {
        anchors.fill: parent
        radius: Theme.buttonRadius
        color: Theme.paper
        border.color: Theme.line
    }
    Rectangle {
        x: 32
        y: 1
        width: parent.width - 64
        height: parent.height - 2
        color: Theme.card
    }
    Rectangle {
        x: 31
        width: 1
        height: parent.height
        color: Theme.line
    }
    Rectangle {
        x: parent.width - 32
        width: 1
        height: parent.height
        color: Theme.line
    }
    FocusRing {
        shown: control.showFocus
        parentRadius: Theme.buttonRadius
    }
    QuietText {
        id: label

        anchors.centerIn: parent
        text: control.typed.length > 0 ? control.typed : control.text
        role: "section"
        wrapMode: Text.NoWrap
        color: control.enabled ? Theme.ink : Theme.disabled
    }

    StepperButton {
        height: control.height
        symbol: "minus"
        text: Texts.format("window.timer.stepper.less", control.name)
        available: control.value > control.from
        onStepped: control.change(control.value - control.stepSize)
    }
    StepperButton {
        x: control.width - width
        height: control.height
        symbol: "plus"
        text: Texts.format("window.timer.stepper.more", control.name)
        available: control.value < control.to
        onStepped: control.change(control.value + control.stepSize)
    }
}
