import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// Everything that a break shows, drawn for 1920 x 1080 and scaled with the height.
Item {
    id: content

    required property BreakContentModel viewModel
    property bool isWarmUp: false
    /// Whether the window is shown: the hint's time and the guard begin then.
    property bool isShown: false

    readonly property real unit: Math.max(0.75, Math.min(height / 1080, 1.6))
    readonly property bool isNarrow: width / unit < 1000
    /// On wide screens the side groups stay near the middle.
    readonly property real edge: Math.max(72 * unit, width / 2 - 1600 * unit)
    /// In the first half second typed words press nothing.
    property bool isGuarded: true
    property bool skipHintVisible: true

    BreakBackground {
        anchors.fill: parent
        unit: content.unit
        videoUrl: content.viewModel.videoUrl
        posterUrl: content.viewModel.posterUrl
        isMuted: content.viewModel.isMuted
        isWarmUp: content.isWarmUp
        onFailed: reason => content.viewModel.videoFailed(reason)
        onSoundMissing: content.viewModel.soundMissing()
    }
    Scrim {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        // In one column the words stand higher, where a bright video would swallow them.
        height: Math.round((content.isNarrow ? 640 : 400) * content.unit)
        color: OverlayStyle.ground
        shares: [0, 0, 0.3, 0.3, 0.56, 0.7, 1, 0.86]
    }
    Item {
        id: top

        anchors.fill: parent
        visible: opacity > 0
        opacity: content.skipHintVisible ? 1 : 0
        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hintTime
                easing.type: Easing.OutQuad
            }
        }

        Scrim {
            width: parent.width
            height: Math.round(150 * content.unit)
            color: OverlayStyle.ground
            shares: [0, 0.38, 1, 0]
        }
        SkipHint {
            anchors.horizontalCenter: parent.horizontalCenter
            y: Math.round(40 * content.unit)
            unit: content.unit
            pressText: Texts.text("breakoverlay.esc_hint_press")
            keyText: Texts.text("breakoverlay.esc_key")
            skipText: Texts.text("breakoverlay.esc_hint_skip")
        }
    }
    BreakTitle {
        id: title

        x: content.isNarrow ? Math.round(32 * content.unit) : Math.round(content.edge)
        y: (content.isNarrow ? chip.y - Math.round(31 * content.unit) : content.height - Math.round(93 * content.unit)) - height
        width: content.isNarrow ? content.width - 2 * x : chip.x - x - Math.round(32 * content.unit)
        alignment: content.isNarrow ? Text.AlignHCenter : Text.AlignLeft
        unit: content.unit
        title: content.viewModel.title
        subtitle: content.viewModel.subtitle
    }
    CountdownChip {
        id: chip

        x: Math.round((content.width - width) / 2)
        y: content.height - Math.round((content.isNarrow ? 262 : 190) * content.unit)
        width: implicitWidth
        height: implicitHeight
        unit: content.unit
        time: content.viewModel.time
        spokenTime: content.viewModel.spokenTime
        phase: content.viewModel.phase
    }
    BreakProgress {
        objectName: "break.progress"
        anchors.horizontalCenter: chip.horizontalCenter
        y: chip.y + Math.round(102 * content.unit)
        width: Math.min(Math.round(420 * content.unit), content.width - 64 * content.unit)
        height: Math.round(8 * content.unit)
        visible: !content.viewModel.canStart
        progress: content.viewModel.progress
        solid: OverlayStyle.solid(content.viewModel.phase)
        name: Texts.text("breakoverlay.progress.accessibility")
    }
    StartBreakButton {
        anchors.horizontalCenter: chip.horizontalCenter
        y: chip.y + chip.height + Math.round(16 * content.unit)
        visible: content.viewModel.canStart
        unit: content.unit
        isGuarded: content.isGuarded
        fill: OverlayStyle.solid(content.viewModel.phase)
        text: Texts.text("breakoverlay.start_button")
        onClicked: content.viewModel.start()
    }
    IconBar {
        x: content.isNarrow ? Math.round((content.width - width) / 2) : Math.round(content.width - content.edge - width)
        y: content.height - Math.round((content.isNarrow ? 24 : 102) * content.unit) - height
        unit: content.unit
        viewModel: content.viewModel
        isGuarded: content.isGuarded
    }
    Timer {
        interval: 500
        running: content.isShown
        onTriggered: content.isGuarded = false
    }
    Timer {
        interval: Theme.hintDelay
        running: content.isShown
        onTriggered: content.skipHintVisible = false
    }
}
