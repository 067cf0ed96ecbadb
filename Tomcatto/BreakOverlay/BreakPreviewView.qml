import QtQuick
import Tomcatto.BreakOverlay

/// A break in an ordinary window, to try a video.
Window {
    id: window

    required property var strings
    required property var viewModel
    property bool escClosesWindow: true

    title: (window.strings.revision, window.strings.text("breakPreview.window.title"))
    width: 1280
    height: 720
    minimumWidth: 720
    minimumHeight: 405
    color: OverlayStyle.ground
    onFrameSwapped: window.viewModel.bodyAppeared()

    BreakOverlayContent {
        anchors.fill: parent
        focus: true
        strings: window.strings
        viewModel: window.viewModel
        isShown: window.visible
        Keys.onEscapePressed: event => {
            if (window.escClosesWindow)
                window.close()
            else
                event.accepted = false
        }
    }
}
