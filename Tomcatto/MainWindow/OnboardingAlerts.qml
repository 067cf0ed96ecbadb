import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The third step: notifications, sounds and opening at login, and where good manners are.
Item {
    id: step

    required property OnboardingViewModel viewModel

    implicitHeight: manners.y + manners.implicitHeight + 16

    OnboardingHeading {
        id: heading

        y: 43
        title: Texts.text("onboarding.alerts.title")
        text: Texts.text("onboarding.alerts.body")
    }
    Card {
        id: card

        readonly property string state: step.viewModel.notifications

        x: 40
        y: Math.max(132, heading.y + heading.implicitHeight + 24)
        width: step.width - 80

        ListRow {
            readonly property bool isBlocked: card.state === "denied" || card.state === "unavailable"

            height: Math.max(66, implicitHeight)
            symbol: "bell"
            title: Texts.text("onboarding.alerts.notifications.title")
            help: step.viewModel.notificationsHelp
            helpIsError: isBlocked

            Symbol {
                visible: card.state === "allowed"
                name: "checkmark"
                size: 16
                color: Theme.longBreak.text
            }
            ThemedText {
                visible: card.state === "allowed"
                text: step.viewModel.notificationsText
                color: Theme.longBreak.text
                wrapMode: Text.NoWrap
            }
            PushButton {
                readonly property var texts: ({
                        "ask": "onboarding.alerts.allow",
                        "denied": "button.open_settings",
                        "allowed": "window.permissions.button.test"
                    })

                visible: card.state in texts
                text: visible ? Texts.text(texts[card.state]) : ""
                ink: Theme.work.text
                Accessible.description: Texts.text("onboarding.alerts.notifications.title")
                onClicked: step.viewModel.allowNotifications()
            }
        }
        ListRow {
            height: Math.max(66, implicitHeight)
            symbol: "speaker.wave.2.fill"
            title: Texts.text("onboarding.alerts.sound.title")
            help: Texts.text("onboarding.alerts.sound.help")
            switchable: true
            checked: step.viewModel.sound
            onToggled: step.viewModel.setSound(checked)
        }
        ListRow {
            height: Math.max(66, implicitHeight)
            symbol: "power"
            title: Texts.text("onboarding.alerts.launch_at_login.title")
            help: Texts.text("onboarding.alerts.launch_at_login.help")
            visible: step.viewModel.offersLaunchAtLogin
            switchable: true
            checked: step.viewModel.launchAtLogin
            onToggled: step.viewModel.setLaunchAtLogin(checked)
        }
    }
    ThemedText {
        id: manners

        x: card.x
        y: card.y + card.implicitHeight + 12
        width: card.width
        text: Texts.text("onboarding.alerts.manners")
        role: "caption"
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
    }
}
