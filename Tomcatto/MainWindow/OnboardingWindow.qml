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

    /// Scrolls so far that an item of the step can be seen; only large texts need it.
    function reveal(item: Item) {
        let ancestor = item
        while (ancestor && ancestor !== content)
            ancestor = ancestor.parent
        if (!ancestor)
            return
        const top = item.mapToItem(content, 0, 0).y - 12
        scrollTo(Math.min(top, Math.max(scroll.contentY, top + item.height + 24 - scroll.height)))
    }

    function scrollTo(y: real) {
        scroll.contentY = Math.max(0, Math.min(scroll.contentHeight - scroll.height, y))
    }

    // Of one size, and says so: a compositor that tiles windows lets such a one float.
    width: Math.round(640 * Math.min(1.25, Theme.textScale))
    height: Math.round(500 * Math.min(1.25, Theme.textScale))
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    title: words("onboarding.window.title")
    color: Theme.paper
    onVisibleChanged: if (visible) primary.forceActiveFocus()
    onActiveFocusItemChanged: if (activeFocusItem) reveal(activeFocusItem)

    Shortcut {
        sequence: "PgDown"
        onActivated: window.scrollTo(scroll.contentY + 0.8 * scroll.height)
    }
    Shortcut {
        sequence: "PgUp"
        onActivated: window.scrollTo(scroll.contentY - 0.8 * scroll.height)
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    Shortcut {
        sequence: "Esc"
        enabled: !window.isFirst
        onActivated: window.viewModel.back()
    }
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
