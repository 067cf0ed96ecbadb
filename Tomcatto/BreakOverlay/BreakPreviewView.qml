import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// A break in an ordinary window, to try a video.
Window {
    id: window

    required property BreakContentModel viewModel
    property bool escClosesWindow: true

    title: Texts.text("breakPreview.window.title")
    width: 1280
    height: 720
    minimumWidth: 720
    minimumHeight: 405
    color: OverlayStyle.ground

    FirstFrame {
        onShown: window.viewModel.bodyAppeared()
    }
    BreakOverlayContent {
        anchors.fill: parent
        focus: true
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
