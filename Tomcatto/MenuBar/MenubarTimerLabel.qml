import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The dial with the phase's name, the time, and the extend chip or a caption.
Dial {
    id: label

    required property MenubarPanelViewModel viewModel
    /// Inside the ring at the height of the name. A longer name gets smaller, down to 11 pixels; where that does not do,
    /// its symbol goes.
    readonly property real nameRoom: 144
    readonly property real symbolRoom: 20
    readonly property bool showsSymbol: viewModel.phase.symbol.length > 0 && fullName.advanceWidth * 11 / 13 <= nameRoom - symbolRoom

    /// Whether the name will say another thing, not only other figures.
    property bool saysOther: false

    /// The chip went while it had the keyboard.
    signal focusLeft(int reason)

    phase: viewModel.phase.theme
    progress: viewModel.clock.progress
    paused: viewModel.phase.isPaused
    pending: viewModel.phase.isPending
    name: viewModel.clock.name
    onNameChanged: {
        if (!saysOther)
            return
        saysOther = false
        tellName()
    }

    Connections {
        // The name follows the phase.
        function onPhaseChanged() {
            label.saysOther = true
        }

        target: label.viewModel
    }
    TextMetrics {
        id: fullName

        font: Theme.font("section", 1)
        text: label.viewModel.phase.name
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 46
        height: 18
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: label.showsSymbol
            name: label.viewModel.phase.symbol
            size: label.viewModel.phase.isPaused ? 11 : 14
            color: phaseName.color
        }
        QuietText {
            id: phaseName

            width: Math.min(Math.ceil(fullName.advanceWidth) + 1, label.nameRoom - (label.showsSymbol ? label.symbolRoom : 0))
            text: label.viewModel.phase.name
            role: "section"
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 11
            horizontalAlignment: Text.AlignHCenter
            textScale: 1
            color: label.viewModel.phase.isPaused ? Theme.ink2 : label.colours.text
            wrapMode: Text.NoWrap
        }
    }
    TickingText {
        objectName: "time"
        anchors.horizontalCenter: parent.horizontalCenter
        y: 65
        text: label.viewModel.clock.text
        font: Theme.font(text.length >= 6 ? "dialTimeLong" : "dialTime", 1)
        lineHeight: 58
        opacity: label.viewModel.phase.isPaused ? 0.6 : 1
        name: ""
    }
    Chip {
        objectName: "extend"
        anchors.horizontalCenter: parent.horizontalCenter
        y: 126
        visible: label.viewModel.phase.showsExtend
        phase: label.phase
        text: Texts.text("menubar.extend_five")
        Accessible.name: Texts.text("menubar.extend")
        Accessible.description: extendTip.text
        onClicked: label.viewModel.extend()
        onVisibleChanged: if (!visible && focus) label.focusLeft(focusReason)

        ToolTip {
            id: extendTip

            text: Texts.text("menubar.extend_five.help")
            textScale: 1
            wanted: parent.hovered && !parent.down
            // Above is the time.
            standsBelow: true
        }
    }
    ThemedText {
        objectName: "caption"
        anchors.horizontalCenter: parent.horizontalCenter
        // Lines more than one go half up, off the ring.
        y: 142 - Math.min(32, height) / 2
        width: 132
        visible: !label.viewModel.phase.showsExtend
        text: label.viewModel.phase.caption
        role: "caption"
        textScale: 1
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
    }
}
