import QtQuick
import QtQuick.Window
import Tomcatto.Appearance

/// The popover's window: the timer panel, or the statistics over it. The controller sets its size, place and flags.
Window {
    id: root

    /// LocalizedStrings.
    required property var strings
    /// MenubarPanelViewModel.
    required property var viewModel
    /// StatisticsViewModel.
    required property var statistics

    /// Milliseconds that the controller takes to change the window's size.
    readonly property int routeTime: Theme.routeTime
    readonly property bool showsStatistics: viewModel.showsStatistics
    readonly property int radius: 14
    /// Whether translucent parts show what lies behind. Where they do not, the corners are cut from the window, and what
    /// their smooth edges leave out would be black.
    property bool isComposited: true

    title: strings.revision, strings.text("app.name")
    color: isComposited ? "transparent" : Theme.line
    width: 280
    height: 460

    Shortcut {
        sequence: "Esc"
        onActivated: root.viewModel.back()
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.paper
    }
    PanelBody {
        id: panel

        anchors.horizontalCenter: parent.horizontalCenter
        width: 280
        height: 460
        radius: root.radius
        strings: root.strings
        viewModel: root.viewModel
        opacity: root.showsStatistics ? 0 : 1
        visible: opacity > 0
        enabled: !root.showsStatistics
        Component.onCompleted: takeFocus()
        onEnabledChanged: if (enabled) takeFocus()

        Behavior on opacity {
            RouteFade {}
        }
    }
    Loader {
        function takeFocus() {
            (item as PanelStatisticsView)?.takeFocus()
        }

        anchors.horizontalCenter: parent.horizontalCenter
        width: 400
        height: 560
        active: root.showsStatistics || opacity > 0
        opacity: root.showsStatistics ? 1 : 0
        enabled: root.showsStatistics
        onLoaded: takeFocus()
        onEnabledChanged: if (enabled) takeFocus()

        // qmllint disable unqualified
        sourceComponent: PanelStatisticsView {
            strings: root.strings
            viewModel: root.viewModel
            statistics: root.statistics
        }
        // qmllint enable unqualified

        Behavior on opacity {
            RouteFade {}
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: "transparent"
        border.color: Theme.line
    }

    component RouteFade: NumberAnimation {
        duration: Theme.routeFadeTime
        easing.type: Easing.InOutCubic
    }
}
