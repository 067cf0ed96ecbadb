import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// Longer, and with or without sound.
Row {
    id: bar

    required property real unit
    required property BreakContentModel viewModel
    property bool isGuarded: false

    spacing: Math.round(12 * unit)

    ExtendBreakButton {
        unit: bar.unit
        isGuarded: bar.isGuarded
        visible: bar.viewModel.canExtend
        text: Texts.text("breakoverlay.extend")
        help: Texts.text("breakoverlay.extend.help")
        onClicked: bar.viewModel.extend()
    }
    OverlayButton {
        objectName: "break.mute.button"
        unit: bar.unit
        isGuarded: bar.isGuarded
        showsText: false
        symbol: bar.viewModel.isMuted ? "speaker.slash.fill" : "speaker.wave.2.fill"
        text: Texts.text(bar.viewModel.isMuted ? "breakoverlay.unmute" : "breakoverlay.mute")
        help: bar.viewModel.soundEnabled ? "" : Texts.text("breakoverlay.sound_off_in_settings")
        onClicked: bar.viewModel.toggleMute()
    }
}
