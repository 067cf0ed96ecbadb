pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The main window: the pages beside a sidebar that shrinks to icons in narrow windows.
Window {
    id: window

    required property MainWindowViewModel viewModel

    width: 920
    height: 820
    // A Wayland compositor that tiles windows cuts what would not shrink to their tile.
    minimumWidth: Qt.platform.pluginName.startsWith("wayland") ? 420 : 720
    minimumHeight: Qt.platform.pluginName.startsWith("wayland") ? 320 : 520
    title: Texts.text("window.title")
    color: Theme.paper

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.viewModel.perform("menu.close_window")
    }
    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: window.viewModel.perform("menu.quit")
    }
    Shortcut {
        sequence: "Ctrl+,"
        onActivated: window.viewModel.perform("menu.settings")
    }
    Shortcut {
        sequence: "F1"
        onActivated: window.viewModel.perform("menu.about")
    }

    Sidebar {
        id: sidebar

        height: parent.height
        compact: window.width < 840
        pages: window.viewModel.pages
        page: window.viewModel.page
        name: Texts.text("window.sidebar.accessibility")
        onChosen: id => window.viewModel.showPage(id)
        // The page keys scroll the page from here too.
        Keys.forwardTo: Array.from(place.children)
    }
    FocusScope {
        id: place

        component Page: Wanted {
            required property string name

            when: window.viewModel.page === name
        }

        x: sidebar.width
        width: window.width - x
        height: window.height

        Page {
            name: "timer"

            TimerPage {
                anchors.fill: place
                viewModel: window.viewModel.timer
            }
        }
        Page {
            name: "general"

            GeneralPage {
                anchors.fill: place
                viewModel: window.viewModel.general
            }
        }
        Page {
            name: "videos"

            VideosPage {
                anchors.fill: place
                viewModel: window.viewModel.videos
            }
        }
        Page {
            name: "statistics"

            StatisticsPage {
                anchors.fill: place
                viewModel: window.viewModel.statistics
            }
        }
        Page {
            name: "permissions"

            PermissionsPage {
                anchors.fill: place
                viewModel: window.viewModel.permissions
            }
        }
        Page {
            name: "about"

            AboutPage {
                anchors.fill: place
                viewModel: window.viewModel.about
            }
        }
    }
}
