pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// How the application looks and speaks up.
ScrollPage {
    id: page

    required property GeneralPageViewModel viewModel
    readonly property ShortcutsViewModel shortcuts: viewModel.shortcuts
    readonly property MannersViewModel manners: viewModel.manners

    component HeadingHelp: ThemedText {
        width: Math.min(implicitWidth, 0.7 * page.columnWidth)
        role: "caption"
        color: Theme.ink2
        horizontalAlignment: Text.AlignRight
    }

    title: Texts.text("window.page.general")
    subtitle: Texts.text("window.general.subtitle")
    Component.onCompleted: manners.appear()
    Component.onDestruction: manners?.disappear()

    Card {
        width: page.columnWidth

        ControlRow {
            id: styleRow

            title: Texts.text("window.general.menu_bar_style.title")
            help: Texts.text("window.general.menu_bar_style.help")

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
                onActivated: index => page.viewModel.chooseMenuBarStyle(index)
            }
        }
        ListRow {
            visible: page.viewModel.offersFloatingPill
            title: Texts.text("window.general.floating_pill.title")
            help: Texts.text("window.general.floating_pill.help")
            switchable: true
            checked: page.viewModel.floatingPill
            onToggled: page.viewModel.requestFloatingPill(checked)
        }
        ControlRow {
            id: themeRow

            title: Texts.text("window.general.theme.title")
            help: Texts.text("window.general.theme.help")

            Segmented {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, themeRow.controlRoom)
                texts: page.viewModel.themes
                currentIndex: page.viewModel.theme
                name: themeRow.title
                onActivated: index => page.viewModel.chooseTheme(index)
            }
        }
        ControlRow {
            id: languageRow

            title: Texts.text("window.general.language.title")
            help: Texts.text("window.general.language.help")

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
        text: Texts.text("window.general.alerts.title")
    }
    Card {
        width: page.columnWidth

        ListRow {
            title: Texts.text("window.general.sound.title")
            help: Texts.text("window.general.sound.help")
            switchable: true
            checked: page.viewModel.sound
            onToggled: page.viewModel.setSound(checked)
        }
        ListRow {
            title: Texts.text("window.general.notifications.title")
            help: page.viewModel.notificationsHelp
            helpIsError: page.viewModel.notificationsBlocked
            switchable: true
            checked: page.viewModel.notifications
            onToggled: page.viewModel.setNotifications(checked)

            PushButton {
                visible: page.viewModel.notificationsDenied
                text: Texts.text("button.open_settings")
                Accessible.description: Texts.text("window.general.notifications.title")
                onClicked: page.viewModel.openNotificationSettings()
            }
        }
        ListRow {
            title: Texts.text("window.general.launch_at_login.title")
            help: page.viewModel.launchAtLoginHelp
            switchable: page.viewModel.offersLaunchAtLogin
            checked: page.viewModel.launchAtLogin
            onToggled: page.viewModel.setLaunchAtLogin(checked)
        }
    }

    SectionHeading {
        text: Texts.text("window.general.manners.title")

        HeadingHelp {
            text: Texts.text("window.general.manners.help")
        }
    }
    Card {
        width: page.columnWidth

        Repeater {
            model: page.manners.rows.length

            MannersRow {
                required property int index
                readonly property var row: page.manners.rows[index] ?? ({})

                title: row.title ?? ""
                help: row.help ?? ""
                told: row.isTold ?? true
                checked: row.isOn ?? false
                choiceTitle: row.choiceTitle ?? ""
                choices: row.choices ?? []
                choice: row.choice ?? 0
                onToggled: isOn => page.manners.setOn(row.id, isOn)
                onChosen: index => page.manners.choose(row.id, index)
            }
        }
    }

    SectionHeading {
        text: Texts.text("window.general.shortcuts.title")

        HeadingHelp {
            visible: page.shortcuts.isOffered
            text: Texts.text("window.general.shortcuts.help")
        }
    }
    Card {
        width: page.columnWidth

        Repeater {
            model: page.shortcuts.isOffered ? page.shortcuts.rows.length : 0

            ShortcutField {
                required property int index
                readonly property var row: page.shortcuts.rows[index] ?? ({})

                title: row.title ?? ""
                help: row.isUnavailable ? Texts.text("main.general.shortcuts.unavailable") : ""
                helpIsError: true
                keys: row.keys ?? []
                name: row.name ?? ""
                recording: row.isRecording ?? false
                notice: row.refusal ?? ""
                notSetText: Texts.text("settings.shortcuts.none")
                changeText: Texts.text("settings.shortcuts.change")
                recordText: Texts.text("settings.shortcuts.record")
                clearText: Texts.text("main.general.shortcuts.clear")
                pressText: Texts.text("settings.shortcuts.recording")
                cancelText: Texts.text("settings.shortcuts.cancel_hint")
                onChangeRequested: page.shortcuts.record(row.id)
                onClearRequested: page.shortcuts.clear(row.id)
            }
        }
        ControlRow {
            visible: !page.shortcuts.isOffered
            title: Texts.text("window.general.shortcuts.help_unavailable")
            help: Texts.text("window.general.shortcuts.help_commands")

            Repeater {
                model: page.shortcuts.commands

                KeyCap {
                    required property string modelData

                    text: modelData
                }
            }
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
            title: Texts.text("window.general.tour.title")
            help: Texts.text("window.general.tour.help")
            separated: false

            PushButton {
                anchors.verticalCenter: parent.verticalCenter
                text: Texts.text("window.general.tour.button")
                Accessible.description: tour.title
                onClicked: page.viewModel.showTour()
            }
        }
    }
}
