import QtQuick
import Tomcatto.Appearance

/// Rounds, goal and streak in three equal columns.
Item {
    id: strip

    required property var strings
    required property var viewModel
    property real radius: 0
    readonly property var figures: viewModel.strip

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
        ThemedText {
            y: 48
            width: parent.width
            text: column.label
            role: "micro"
            textScale: 1
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        HoverHandler {
            id: hover
        }
        ToolTip {
            text: column.help
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
        label: strip.figures.roundLabel
        help: strip.strings.revision, strip.strings.text("menubar.cycle.help")
        name: label

        RoundMarkers {
            anchors.centerIn: parent
            total: strip.figures.rounds
            done: strip.figures.roundsDone
            current: strip.figures.isRoundCurrent
            phase: "work"
            // Six of them are wider than the column.
            markerSize: Math.min(15, Math.floor(((parent?.width ?? 0) + gap) / total) - gap)
            compactText: strip.figures.roundCompact
            Accessible.ignored: true
        }
    }
    Column {
        place: 1
        label: strip.strings.revision, strip.strings.text("menubar.strip.goal_today")
        help: strip.strings.revision, strip.strings.text("menubar.goal.help")
        name: strip.figures.goalName

        Row {
            anchors.centerIn: parent

            TickingText {
                text: strip.figures.goalCount
                font: Theme.font("primary", 1)
                lineHeight: 22
                name: ""
            }
            ThemedText {
                height: 22
                text: strip.figures.goalRest
                font: Theme.sizedFont(15, Font.Normal, 0)
                lineHeight: 22
                color: Theme.ink2
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
        }
    }
    Column {
        place: 2
        label: strip.strings.revision, strip.strings.text("menubar.strip.streak_days")
        help: strip.strings.revision, strip.strings.text("menubar.streak.help")
        name: strip.figures.streakName

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
                text: strip.figures.streak
                font: Theme.font("primary", 1)
                lineHeight: 22
                name: ""
            }
        }
    }
}
