import QtQuick
import Tomcatto.Appearance

/// The main window: the pages beside a sidebar that shrinks to icons in narrow windows.
Window {
    id: window

    required property var strings
    required property var viewModel

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    function pageFor(id: string): Component {
        switch (id) {
        case "general":
            return generalPage
        case "videos":
            return videosPage
        case "statistics":
            return statisticsPage
        case "permissions":
            return permissionsPage
        case "about":
            return aboutPage
        default:
            return timerPage
        }
    }

    width: 920
    height: 820
    minimumWidth: 720
    minimumHeight: 520
    title: words("window.title")
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
        name: window.words("window.sidebar.accessibility")
        onChosen: id => window.viewModel.showPage(id)
        // The page keys scroll the page from here too.
        Keys.forwardTo: [content.item]
    }
    Loader {
        id: content

        x: sidebar.width
        width: window.width - x
        height: window.height
        sourceComponent: window.pageFor(window.viewModel.page)
    }

    // qmllint disable unqualified
    Component {
        id: timerPage

        TimerPage {
            strings: window.strings
            viewModel: window.viewModel.timer
        }
    }
    Component {
        id: generalPage

        GeneralPage {
            strings: window.strings
            viewModel: window.viewModel.general
        }
    }
    Component {
        id: videosPage

        VideosPage {
            strings: window.strings
            viewModel: window.viewModel.videos
        }
    }
    Component {
        id: statisticsPage

        LaterPage {
            title: window.words("window.page.statistics")
            emptyTitle: window.words("window.later.title")
            emptyText: window.words("window.statistics.later")
        }
    }
    Component {
        id: permissionsPage

        PermissionsPage {
            strings: window.strings
            viewModel: window.viewModel.permissions
        }
    }
    Component {
        id: aboutPage

        AboutPage {
            strings: window.strings
            viewModel: window.viewModel.about
        }
    }
    // qmllint enable unqualified
}
