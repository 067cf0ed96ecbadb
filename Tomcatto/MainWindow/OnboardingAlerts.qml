import QtQuick
import Tomcatto.Appearance

/// The third step: notifications, sounds and opening at login.
Item {
    id: step

    required property var strings
    required property var viewModel

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    implicitHeight: card.y + card.implicitHeight + 16

    OnboardingHeading {
        id: heading

        x: 40
        y: 43
        width: step.width - 80
        title: step.words("onboarding.alerts.title")
        text: step.words("onboarding.alerts.body")
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
            title: step.words("onboarding.alerts.notifications.title")
            help: isBlocked ? step.viewModel.notificationsText : step.words("onboarding.alerts.notifications.help")
            helpIsError: isBlocked

            PushButton {
                visible: card.state === "ask" || card.state === "denied"
                text: step.words(card.state === "denied" ? "button.open_settings" : "onboarding.alerts.allow")
                ink: Theme.work.text
                Accessible.description: step.words("onboarding.alerts.notifications.title")
                onClicked: step.viewModel.allowNotifications()
            }
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
        }
        ListRow {
            height: Math.max(66, implicitHeight)
            symbol: "speaker.wave.2.fill"
            title: step.words("onboarding.alerts.sound.title")
            help: step.words("onboarding.alerts.sound.help")
            switchable: true
            checked: step.viewModel.sound
            onToggled: step.viewModel.setSound(checked)
        }
        ListRow {
            height: Math.max(66, implicitHeight)
            symbol: "power"
            title: step.words("onboarding.alerts.launch_at_login.title")
            help: step.words("onboarding.alerts.launch_at_login.help")
            switchable: true
            checked: step.viewModel.launchAtLogin
            onToggled: step.viewModel.setLaunchAtLogin(checked)
        }
    }
}
