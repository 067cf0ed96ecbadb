import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// From back to front: plain ground with the mark, the still picture, the video. Each shows while what is above it does
/// not, so nothing ever waits for a video and a broken one leaves what was there.
Item {
    id: background

    required property real unit
    required property url videoUrl
    required property url posterUrl
    required property bool isMuted
    /// Loads what playing takes before there is anything to play.
    property bool isWarmUp: false
    signal failed(string reason)
    signal soundMissing

    Rectangle {
        anchors.fill: parent
        color: OverlayStyle.ground
    }
    Logo {
        anchors.centerIn: parent
        visible: poster.status !== Image.Ready && !poster.isCovered
        variant: Logo.Mono
        size: Math.round(320 * background.unit)
        color: OverlayStyle.logo
    }
    // What fills the window, as high as a video of 16 to 9 is at its width. A wider window cuts off the air above the cats
    // first: the chip is not to hide their paws.
    Item {
        id: frame

        objectName: "break.picture"
        width: background.width
        height: Math.max(background.height, Math.floor(background.width * 9 / 16))
        y: -Math.round(Math.min(height - background.height, height * 0.17))
    }
    Image {
        id: poster

        readonly property bool isCovered: player.item?.hasFrame ?? false

        anchors.fill: frame
        visible: !poster.isCovered
        // Let go while the window still draws: what it leaves behind is kept until the next window does, hours later,
        // and so is what is in the cache.
        source: poster.isCovered ? "" : background.posterUrl
        cache: false
        asynchronous: true
        // Decoded no larger than it is shown.
        sourceSize.height: frame.height
        fillMode: Image.PreserveAspectCrop
        Accessible.ignored: true
    }
    Loader {
        id: player

        function load() {
            setSource(Qt.resolvedUrl("VideoPlayerView.qml"), {
                "videoUrl": background.videoUrl,
                "isMuted": Qt.binding(() => background.isMuted),
                "isStill": Qt.binding(() => Theme.reducedMotion)
            })
        }

        readonly property bool isWanted: background.isWarmUp || String(background.videoUrl).length > 0

        anchors.fill: frame
        // Also when it is wanted from the beginning.
        onIsWantedChanged: if (isWanted)
            load()
    }
    Connections {
        target: player.item
        ignoreUnknownSignals: true

        function onFailed(reason: string) {
            background.failed(reason)
        }
        function onSoundMissing() {
            background.soundMissing()
        }
    }
}
