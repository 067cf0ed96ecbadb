import QtQuick
import Tomcatto.Appearance

/// Tells its model what it sees of it.
Window {
    id: echo

    required property var model
    readonly property bool isDark: Theme.dark

    width: 100
    height: 100
    onIsDarkChanged: model.note("dark " + isDark)
    Component.onCompleted: {
        model.appear()
        model.note("made " + isDark + " " + model.child.name + " " + model.size.width)
    }
    Component.onDestruction: model.disappear()

    Connections {
        target: echo.model
        function onNameChanged() { echo.model.note("name " + echo.model.name) }
        function onAsked(question, number) { echo.model.note(question + number) }
    }
    Instantiator {
        model: echo.model.rows
        delegate: QtObject {
            required property string text
            required property int index
            onTextChanged: echo.model.note("row " + index + " " + text)
            Component.onCompleted: echo.model.note("row " + index + " " + text)
        }
        onObjectRemoved: (index, object) => echo.model.note("gone " + object.text)
    }
}
