import QtQuick
import Tomcatto.BreakOverlay

/// Longer, and with or without sound.
Row {
    id: bar

    required property real unit
    required property var strings
    required property var viewModel
    property bool isGuarded: false

    function text(key: string): string {
        return bar.strings.revision, bar.strings.text(key)
    }

    spacing: Math.round(12 * unit)

    ExtendBreakButton {
        unit: bar.unit
        isGuarded: bar.isGuarded
        visible: bar.viewModel.canExtend
        text: bar.text("breakoverlay.extend")
        help: bar.text("breakoverlay.extend.help")
        onClicked: bar.viewModel.extend()
    }
    OverlayButton {
        objectName: "break.mute.button"
        unit: bar.unit
        isGuarded: bar.isGuarded
        showsText: false
        symbol: bar.viewModel.isMuted ? "speaker.slash.fill" : "speaker.wave.2.fill"
        text: bar.text(bar.viewModel.isMuted ? "breakoverlay.unmute" : "breakoverlay.mute")
        help: bar.viewModel.soundEnabled ? "" : bar.text("breakoverlay.sound_off_in_settings")
        onClicked: bar.viewModel.toggleMute()
    }
}
