import QtQuick
import Tomcatto.Appearance

/// How the application looks and speaks up.
ScrollPage {
    id: page

    required property var strings
    required property var viewModel

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    title: words("window.page.general")
    subtitle: words("window.general.subtitle")

    Card {
        width: page.columnWidth

        ControlRow {
            id: styleRow

            title: page.words("window.general.menu_bar_style.title")
            help: page.words("window.general.menu_bar_style.help")

            PillSample {
                id: sample

                anchors.verticalCenter: parent.verticalCenter
                time: page.viewModel.menuBarStyle === 1 ? "16:12" : ""
                progress: 0.36
            }
            Segmented {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, styleRow.controlRoom - sample.width - 12)
                texts: page.viewModel.menuBarStyles
                currentIndex: page.viewModel.menuBarStyle
                name: styleRow.title
                onActivated: index => {
                    page.viewModel.chooseMenuBarStyle(index)
                    currentIndex = Qt.binding(() => page.viewModel.menuBarStyle)
                }
            }
        }
        ListRow {
            visible: page.viewModel.offersFloatingPill
            title: page.words("window.general.floating_pill.title")
            help: page.words("window.general.floating_pill.help")
            switchable: true
            checked: page.viewModel.floatingPill
            onToggled: page.viewModel.requestFloatingPill(checked)
        }
        ControlRow {
            id: themeRow

            title: page.words("window.general.theme.title")
            help: page.words("window.general.theme.help")

            Segmented {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, themeRow.controlRoom)
                texts: page.viewModel.themes
                currentIndex: page.viewModel.theme
                name: themeRow.title
                onActivated: index => {
                    page.viewModel.chooseTheme(index)
                    currentIndex = Qt.binding(() => page.viewModel.theme)
                }
            }
        }
        ControlRow {
            id: languageRow

            title: page.words("window.general.language.title")
            help: page.words("window.general.language.help")

            PopUpButton {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(Math.round(176 * Theme.textScale), languageRow.controlRoom)
                model: page.viewModel.languages
                currentIndex: page.viewModel.language
                name: languageRow.title
                onActivated: index => page.viewModel.chooseLanguage(index)
            }
        }
    }

    SectionHeading {
        text: page.words("window.general.alerts.title")
    }
    Card {
        width: page.columnWidth

        ListRow {
            title: page.words("window.general.sound.title")
            help: page.words("window.general.sound.help")
            switchable: true
            checked: page.viewModel.sound
            onToggled: page.viewModel.setSound(checked)
        }
        ListRow {
            title: page.words("window.general.notifications.title")
            help: page.viewModel.notificationsHelp
            helpIsError: page.viewModel.notificationsBlocked
            switchable: true
            checked: page.viewModel.notifications
            onToggled: page.viewModel.setNotifications(checked)

            PushButton {
                visible: page.viewModel.notificationsDenied
                text: page.words("button.open_settings")
                Accessible.description: page.words("window.general.notifications.title")
                onClicked: page.viewModel.openNotificationSettings()
            }
        }
        ListRow {
            title: page.words("window.general.launch_at_login.title")
            help: page.viewModel.launchAtLoginHelp
            switchable: true
            checked: page.viewModel.launchAtLogin
            onToggled: page.viewModel.setLaunchAtLogin(checked)
        }
    }

    SectionHeading {
        text: page.words("window.general.shortcuts.title")

        ThemedText {
            width: Math.min(implicitWidth, 0.7 * page.columnWidth)
            text: page.words("window.general.shortcuts.later")
            role: "caption"
            color: Theme.ink2
            horizontalAlignment: Text.AlignRight
        }
    }
    Card {
        width: page.columnWidth

        Repeater {
            model: ["toggle_timer", "skip", "extend"]

            // qmllint disable unqualified
            ListRow {
                required property string modelData

                title: page.words("main.general.shortcuts." + modelData)
                value: page.words("settings.shortcuts.none")
            }
            // qmllint enable unqualified
        }
    }

    Item {
        width: page.columnWidth
        height: tour.implicitHeight + 20

        ControlRow {
            id: tour

            x: -14
            y: 20
            width: parent.width + 28
            title: page.words("window.general.tour.title")
            help: page.words("window.general.tour.help")
            separated: false

            PushButton {
                anchors.verticalCenter: parent.verticalCenter
                text: page.words("window.general.tour.button")
                Accessible.description: tour.title
                onClicked: page.viewModel.showTour()
            }
        }
    }
}
