import QtQuick

/// Tells once that its window has shown something. A handler of the window would run with each frame of a film.
Item {
    id: first

    property bool isAwaited: true
    signal shown

    Connections {
        target: first.Window.window
        enabled: first.isAwaited
        function onFrameSwapped() {
            first.isAwaited = false
            first.shown()
        }
    }
}
