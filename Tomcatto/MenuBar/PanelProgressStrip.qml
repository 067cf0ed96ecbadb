import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// Rounds, goal and streak in three equal columns.
Item {
    id: strip

    required property MenubarPanelViewModel viewModel
    property real radius: 0

    component Column: Item {
        id: column

        required property int place
        required property string label
        required property string help
        required property string name
        default property alias value: holder.data

        x: 8 + place * width
        width: ((parent?.width ?? 0) - 16) / 3
        height: parent?.height ?? 0
        Accessible.role: Accessible.StaticText
        Accessible.name: name
        Accessible.description: help

        Item {
            id: holder

            y: 23
            width: parent.width
            height: 22
        }
        QuietText {
            y: 48
            width: parent.width
            text: column.label
            role: "micro"
            textScale: 1
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
        }
        HoverHandler {
            id: hover
        }
        ToolTip {
            text: column.help
            textScale: 1
            wanted: hover.hovered
            targetTop: 16
        }
    }

    // Round below, where the panel ends; straight above.
    Rectangle {
        anchors.fill: parent
        radius: strip.radius
        color: Theme.sunk
    }
    Rectangle {
        width: parent.width
        height: strip.radius
        color: Theme.sunk
    }
    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    Column {
        place: 0
        label: strip.viewModel.strip.roundLabel
        help: Texts.text("menubar.cycle.help")
        name: label

        RoundMarkers {
            anchors.centerIn: parent
            total: strip.viewModel.strip.rounds
            done: strip.viewModel.strip.roundsDone
            current: strip.viewModel.strip.isRoundCurrent
            phase: "work"
            // Six of them are wider than the column.
            markerSize: Math.min(15, Math.floor(((parent?.width ?? 0) + gap) / total) - gap)
            compactText: strip.viewModel.strip.roundCompact
            Accessible.ignored: true
        }
    }
    Column {
        place: 1
        label: Texts.text("menubar.strip.goal_today")
        help: Texts.text("menubar.goal.help")
        name: strip.viewModel.strip.goalName

        Row {
            anchors.centerIn: parent

            TickingText {
                text: strip.viewModel.strip.goalCount
                font: Theme.font("primary", 1)
                lineHeight: 22
                name: ""
            }
            QuietText {
                height: 22
                text: strip.viewModel.strip.goalRest
                font: Theme.sizedFont(15, Font.Normal, 0)
                lineHeight: 22
                color: Theme.ink2
                wrapMode: Text.NoWrap
            }
        }
    }
    Column {
        place: 2
        label: Texts.text("menubar.strip.streak_days")
        help: Texts.text("menubar.streak.help")
        name: strip.viewModel.strip.streakName

        Row {
            anchors.centerIn: parent
            spacing: 6

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "pawprint"
                size: 15
                color: Theme.work.solid
            }
            TickingText {
                text: strip.viewModel.strip.streak
                font: Theme.font("primary", 1)
                lineHeight: 22
                name: ""
            }
        }
    }
}
