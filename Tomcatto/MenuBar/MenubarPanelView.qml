pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The popover's window: the timer panel, or the statistics over it. The controller sets its size, place and flags.
Window {
    id: root

    required property MenubarPanelViewModel viewModel
    required property StatisticsViewModel statistics

    /// Milliseconds that the controller takes to change the window's size.
    readonly property int routeTime: Theme.routeTime
    readonly property bool showsStatistics: viewModel.showsStatistics
    readonly property int radius: 14
    /// Whether translucent parts show what lies behind. Where they do not, the corners are cut from the window, and what
    /// their smooth edges leave out would be black.
    property bool isComposited: true

    title: Texts.text("app.name")
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
    FocusScope {
        id: statisticsRoute

        anchors.horizontalCenter: parent.horizontalCenter
        width: 400
        height: 560
        opacity: root.showsStatistics ? 1 : 0
        enabled: root.showsStatistics

        Wanted {
            when: root.showsStatistics || statisticsRoute.opacity > 0

            PanelStatisticsView {
                anchors.fill: statisticsRoute
                viewModel: root.viewModel
                statistics: root.statistics
                Component.onCompleted: takeFocus()
                onEnabledChanged: if (enabled) takeFocus()
            }
        }

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
