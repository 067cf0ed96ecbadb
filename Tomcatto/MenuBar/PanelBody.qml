import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The timer panel: header, dial with time, transport controls, progress strip.
Item {
    id: body

    required property MenubarPanelViewModel viewModel
    property real radius: 0
    readonly property var colours: Theme.phase(viewModel.phase.theme)

    /// Gives the keyboard to the one filled button.
    function takeFocus() {
        transport.takeFocus()
    }

    // The wash of the phase at the top fades into the paper.
    Rectangle {
        anchors.fill: parent
        radius: body.radius
        gradient: Gradient {
            GradientStop {
                position: 0
                color: body.colours.wash

                Behavior on color { Tint { duration: Theme.phaseTime } }
            }
            GradientStop {
                position: 190 / 460
                color: Theme.paper
            }
        }
    }
    MenubarHeader {
        y: 8
        width: body.width
        viewModel: body.viewModel
    }
    MenubarTimerLabel {
        x: 40
        y: 50
        viewModel: body.viewModel
        onFocusLeft: reason => transport.takeFocus(reason)
    }
    MenubarTransportBar {
        id: transport

        x: 16
        y: 264
        width: body.width - 32
        viewModel: body.viewModel
    }
    PanelProgressStrip {
        y: 376
        width: body.width
        height: 84
        radius: body.radius
        viewModel: body.viewModel
    }
    SpokenText {
        id: notice

        isNotice: true
        Accessible.role: Accessible.Notification
    }
    Connections {
        function onAnnouncementChanged() {
            notice.announce(body.viewModel.announcement)
        }

        target: body.viewModel
    }
}
