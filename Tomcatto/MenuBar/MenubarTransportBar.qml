import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The filled button over two tiles.
Item {
    id: bar

    required property MenubarPanelViewModel viewModel

    function takeFocus(reason = Qt.OtherFocusReason) {
        primary.forceActiveFocus(reason)
    }
    /// A tile takes the keyboard over from the one in whose place it comes: keys reach nothing that is not there.
    function replace(gone: TransportTile, come: TransportTile) {
        if (gone.focus)
            (come.enabled ? come : primary).forceActiveFocus(gone.focusReason)
    }

    implicitHeight: 96

    PrimaryButton {
        id: primary

        objectName: "primary"
        width: parent.width
        textScale: 1
        phase: bar.viewModel.phase.theme
        symbol: bar.viewModel.phase.primarySymbol
        text: bar.viewModel.phase.primaryText
        Accessible.description: bar.viewModel.phase.wasAway ? bar.viewModel.phase.headline : ""
        onClicked: bar.viewModel.primary()
    }
    TransportTile {
        objectName: "reset"
        y: 56
        enabled: bar.viewModel.phase.canReset
        symbol: "arrow.counterclockwise"
        text: Texts.text("menubar.transport_reset")
        Accessible.description: Texts.text("menubar.transport_reset.help")
        onClicked: bar.viewModel.reset()
        onEnabledChanged: if (!enabled && focus) bar.takeFocus(focusReason)
    }
    TransportTile {
        id: skip

        objectName: "skip"
        x: bar.width - width
        y: 56
        visible: !bar.viewModel.phase.showsTakeBreak
        enabled: bar.viewModel.phase.canSkip
        symbol: "forward.fill"
        text: Texts.text("menubar.transport_skip")
        Accessible.description: Texts.text("menubar.transport_skip.help")
        onClicked: bar.viewModel.skip()
        onEnabledChanged: if (!enabled && focus) bar.takeFocus(focusReason)
        onVisibleChanged: if (visible) bar.replace(takeBreak, skip)
    }
    TransportTile {
        id: takeBreak

        objectName: "takeBreak"
        x: bar.width - width
        y: 56
        visible: bar.viewModel.phase.showsTakeBreak
        wanted: true
        phase: bar.viewModel.phase.theme
        symbol: "cup.and.saucer.fill"
        text: Texts.text("menubar.transport_take_break")
        onClicked: bar.viewModel.takeBreak()
        onVisibleChanged: if (visible) bar.replace(skip, takeBreak)
    }
}
