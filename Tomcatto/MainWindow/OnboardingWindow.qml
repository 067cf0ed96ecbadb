pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The first start in four steps. The primary button has the keyboard at every step.
Window {
    id: window

    required property OnboardingViewModel viewModel
    readonly property bool isFirst: viewModel.step === 0
    readonly property bool isLast: viewModel.step === viewModel.stepCount - 1

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
    title: Texts.text("onboarding.window.title")
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

        Column {
            id: content

            component Step: Wanted {
                required property int number

                when: window.viewModel.step === number
            }

            width: window.width

            Step {
                number: 0

                OnboardingWelcome {
                    width: content.width
                    height: Math.max(scroll.height, implicitHeight)
                }
            }
            Step {
                number: 1

                OnboardingRhythm {
                    width: content.width
                    height: Math.max(scroll.height, implicitHeight)
                    viewModel: window.viewModel
                }
            }
            Step {
                number: 2

                OnboardingAlerts {
                    width: content.width
                    height: Math.max(scroll.height, implicitHeight)
                    viewModel: window.viewModel
                }
            }
            Step {
                number: 3

                OnboardingPlace {
                    width: content.width
                    height: Math.max(scroll.height, implicitHeight)
                    viewModel: window.viewModel
                }
            }
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
            text: Texts.text(window.isFirst ? "onboarding.button.start_now" : "onboarding.button.back")
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
            text: Texts.text(window.isLast ? "onboarding.button.start_first_focus" : "onboarding.button.continue")
            onClicked: window.isLast ? window.viewModel.startFocus() : window.viewModel.next()
        }
    }
}
