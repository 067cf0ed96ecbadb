pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The fourth step: where the application is found, as a picture of the bar with its pill or icon.
Item {
    id: step

    required property OnboardingViewModel viewModel

    implicitHeight: heading.y + heading.implicitHeight + 16

    Rectangle {
        id: scene

        // The pill or the icon, whichever is shown.
        readonly property real targetX: bar.x + (pill.visible ? pill.x + pill.width / 2 : icon.x + icon.width / 2)

        width: step.width
        height: 262
        color: Theme.work.wash

        Rectangle {
            width: parent.width
            height: 34
            color: Theme.dark ? "#2A2729" : "#ECE9E7"
        }
        Row {
            id: bar

            anchors.right: parent.right
            anchors.rightMargin: 18
            height: 34
            spacing: 16

            PillSample {
                id: pill

                anchors.verticalCenter: parent.verticalCenter
                visible: step.viewModel.showsPill
                time: step.viewModel.focusTime
                resting: true
            }
            Rectangle {
                id: icon

                anchors.verticalCenter: parent.verticalCenter
                visible: !step.viewModel.showsPill
                width: 24
                height: 24
                radius: 7
                color: Theme.dark ? Qt.rgba(1, 1, 1, 0.10) : Qt.rgba(0, 0, 0, 0.07)

                Logo {
                    anchors.centerIn: parent
                    size: 17
                    variant: Logo.SmallColour
                }
            }
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "speaker.wave.2.fill"
                size: 15
                color: Theme.ink
            }
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "bell"
                size: 15
                color: Theme.ink
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: step.viewModel.barTime
                font: Theme.sizedFont(13, Font.Medium, 0)
                color: Theme.ink
                textFormat: Text.PlainText
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
        }
        Dial {
            id: dial

            x: step.width / 2 - 138
            y: 95
            width: 144
            height: 144
            phase: "idle"
            Accessible.ignored: true

            TickingText {
                anchors.centerIn: parent
                text: step.viewModel.focusTime
                font: Theme.sizedFont(36, Font.DemiBold, 0)
                name: ""
            }
        }
        Repeater {
            model: 22

            // Dots along a curve from the dial to the bar.
            Rectangle {
                required property int index
                readonly property real part: index / 21
                readonly property point from: Qt.point(step.width / 2 + 22, 172)
                readonly property point bend: Qt.point(scene.targetX - 2, 164)
                readonly property point to: Qt.point(scene.targetX, 56)

                function along(a: real, b: real, c: real): real {
                    return (1 - part) * (1 - part) * a + 2 * part * (1 - part) * b + part * part * c
                }

                x: along(from.x, bend.x, to.x) - 2
                y: along(from.y, bend.y, to.y) - 2
                width: 4
                height: 4
                radius: 2
                color: Theme.work.solid
            }
        }
        Repeater {
            model: [-1, 1]

            // The arrow's head.
            Rectangle {
                required property int modelData

                x: scene.targetX - 1.5
                y: 51
                width: 3
                height: 17
                radius: 1.5
                rotation: -40 * modelData
                transformOrigin: Item.Top
                antialiasing: true
                color: Theme.work.solid
            }
        }
    }
    OnboardingHeading {
        id: heading

        y: 294
        title: Texts.text(step.viewModel.showsPill ? "onboarding.place.title" : "onboarding.place.title_tray")
        text: Texts.text(step.viewModel.showsPill ? "onboarding.place.body" : "onboarding.place.body_tray")
    }
}
