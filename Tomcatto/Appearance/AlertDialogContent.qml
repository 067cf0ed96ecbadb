import QtQuick
import Tomcatto.Appearance

/// The inside of a question: title, text, a way out and the one filled button. Return confirms unless it destroys
/// something, Esc leaves.
FocusScope {
    id: dialog

    property string title
    property string text
    property string cancelText
    property string confirmText
    /// The confirmation cannot be taken back: marked with the warning symbol, and the way out has the focus.
    property bool destructive: false
    property real textScale: Theme.textScale

    signal accepted
    signal rejected

    implicitWidth: 360
    implicitHeight: column.implicitHeight + 48
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: title
    Accessible.description: text
    Keys.onEscapePressed: rejected()

    Column {
        id: column

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 8

        Symbol {
            visible: dialog.destructive
            name: "exclamationmark.triangle"
            size: 28
            color: Theme.danger
        }
        ThemedText {
            width: parent.width
            text: dialog.title
            role: "primary"
            textScale: dialog.textScale
            Accessible.role: Accessible.Heading
        }
        ThemedText {
            width: parent.width
            text: dialog.text
            textScale: dialog.textScale
            color: Theme.ink2
        }
        Item {
            width: 1
            height: 8
        }
        Flow {
            width: parent.width
            layoutDirection: Qt.RightToLeft
            spacing: 8

            PushButton {
                prominent: true
                text: dialog.confirmText
                textScale: dialog.textScale
                focus: !dialog.destructive
                onClicked: dialog.accepted()
            }
            PushButton {
                visible: dialog.cancelText.length > 0
                text: dialog.cancelText
                textScale: dialog.textScale
                focus: dialog.destructive
                onClicked: dialog.rejected()
            }
        }
    }
}
