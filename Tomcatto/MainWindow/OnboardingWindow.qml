import QtQuick
import Tomcatto.Appearance

/// The first start in four steps. The primary button has the keyboard at every step.
Window {
    id: window

    required property var strings
    required property var viewModel
    readonly property bool isFirst: viewModel.step === 0
    readonly property bool isLast: viewModel.step === viewModel.stepCount - 1

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    function stepFor(index: int): Component {
        switch (index) {
        case 0:
            return welcome
        case 1:
            return rhythm
        case 2:
            return alerts
        default:
            return place
        }
    }

    width: Math.round(640 * Math.min(1.25, Theme.textScale))
    height: Math.round(500 * Math.min(1.25, Theme.textScale))
    minimumWidth: 640
    minimumHeight: 500
    title: words("onboarding.window.title")
    color: Theme.paper
    onVisibleChanged: if (visible) primary.forceActiveFocus()

    Connections {
        target: window.viewModel

        function onStepChanged() {
            scroll.contentY = 0
            primary.forceActiveFocus()
        }
    }

    Flickable {
        id: scroll

        width: window.width
        height: footer.y
        contentHeight: content.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Loader {
            id: content

            width: window.width
            height: Math.max(scroll.height, (item as Item)?.implicitHeight ?? 0)
            sourceComponent: window.stepFor(window.viewModel.step)
        }
    }
    Item {
        id: footer

        readonly property real side: (width - markers.width) / 2 - 40

        y: window.height - height
        width: window.width
        height: Math.max(72, Math.max(secondary.implicitHeight, primary.implicitHeight) + 32)

        TextButton {
            id: secondary

            x: 16
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, footer.side)
            text: window.words(window.isFirst ? "onboarding.button.start_now" : "onboarding.button.back")
            onClicked: window.isFirst ? window.viewModel.startFocus() : window.viewModel.back()
        }
        StepMarkers {
            id: markers

            anchors.centerIn: parent
            step: window.viewModel.step
            stepCount: window.viewModel.stepCount
            Accessible.name: window.viewModel.stepName
        }
        PrimaryButton {
            id: primary

            x: parent.width - width - 24
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, footer.side)
            compact: true
            symbol: window.isLast ? "play.fill" : ""
            text: window.words(window.isLast ? "onboarding.button.start_first_focus" : "onboarding.button.continue")
            onClicked: window.isLast ? window.viewModel.startFocus() : window.viewModel.next()
        }
    }

    // qmllint disable unqualified
    Component {
        id: welcome

        OnboardingWelcome {
            title: window.words("onboarding.welcome.title")
            text: window.words("onboarding.welcome.body")
        }
    }
    Component {
        id: rhythm

        OnboardingRhythm {
            title: window.words("onboarding.rhythm.title")
            text: window.words("onboarding.rhythm.body")
            footer: window.words("onboarding.rhythm.footer")
            viewModel: window.viewModel
        }
    }
    Component {
        id: alerts

        OnboardingAlerts {
            strings: window.strings
            viewModel: window.viewModel
        }
    }
    Component {
        id: place

        OnboardingPlace {
            strings: window.strings
            viewModel: window.viewModel
        }
    }
    // qmllint enable unqualified
}
