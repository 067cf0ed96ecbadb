import QtQuick
import Tomcatto.Appearance

/// The filled button over two tiles.
Item {
    id: bar

    required property var strings
    required property var viewModel
    readonly property var phase: viewModel.phase

    function takeFocus() {
        primary.forceActiveFocus(Qt.OtherFocusReason)
    }

    implicitHeight: 96

    PrimaryButton {
        id: primary

        objectName: "primary"
        width: parent.width
        textScale: 1
        phase: bar.phase.theme
        symbol: bar.phase.primarySymbol
        text: bar.phase.primaryText
        onClicked: bar.viewModel.primary()
    }
    TransportTile {
        objectName: "reset"
        y: 56
        enabled: bar.phase.canReset
        symbol: "arrow.counterclockwise"
        text: bar.strings.revision, bar.strings.text("menubar.transport_reset")
        Accessible.description: bar.strings.revision, bar.strings.text("menubar.transport_reset.help")
        onClicked: bar.viewModel.reset()
    }
    TransportTile {
        objectName: "skip"
        x: bar.width - width
        y: 56
        visible: !bar.phase.showsTakeBreak
        enabled: bar.phase.canSkip
        symbol: "forward.fill"
        text: bar.strings.revision, bar.strings.text("menubar.transport_skip")
        Accessible.description: bar.strings.revision, bar.strings.text("menubar.transport_skip.help")
        onClicked: bar.viewModel.skip()
    }
    TransportTile {
        objectName: "takeBreak"
        x: bar.width - width
        y: 56
        visible: bar.phase.showsTakeBreak
        wanted: true
        phase: bar.phase.theme
        symbol: "cup.and.saucer.fill"
        text: bar.strings.revision, bar.strings.text("menubar.transport_take_break")
        onClicked: bar.viewModel.takeBreak()
    }
}
