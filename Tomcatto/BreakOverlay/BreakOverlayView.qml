import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// The break over one screen.
Window {
    id: window

    required property BreakContentModel viewModel
    property bool isWarmUp: false
    /// The window closes, and takes nothing any more.
    property bool isLeaving: false
    /// Milliseconds of fading, where the desktop can do that.
    readonly property int inTime: Theme.overlayInTime
    readonly property int outTime: Theme.overlayOutTime

    title: window.viewModel.title
    color: OverlayStyle.ground

    FirstFrame {
        onShown: window.viewModel.bodyAppeared()
    }
    BreakOverlayContent {
        anchors.fill: parent
        enabled: !window.isLeaving
        viewModel: window.viewModel
        isWarmUp: window.isWarmUp
        isShown: window.visible
    }
}
