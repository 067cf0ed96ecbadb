import QtQuick
import QtMultimedia
import Tomcatto.BreakOverlay

/// Plays one video without an end, filling itself.
Item {
    id: view

    required property url videoUrl
    required property bool isMuted
    /// Shows the first frame and stops there.
    property bool isStill: false
    readonly property bool hasFrame: screen.item?.hasFrame ?? false
    signal failed(string reason)
    signal soundMissing

    onHasFrameChanged: if (isStill)
        player.pause()
    onIsStillChanged: {
        if (hasFrame && isStill)
            player.pause()
        else if (hasFrame)
            player.play()
    }

    MediaDevices {
        id: devices
    }
    AudioOutput {
        id: sound

        muted: view.isMuted
    }
    MediaPlayer {
        id: player

        source: view.videoUrl
        loops: MediaPlayer.Infinite
        videoOutput: screen.item
        // Without a device only the picture plays.
        audioOutput: devices.audioOutputs.length > 0 ? sound : null
        onErrorOccurred: (error, text) => view.failed(text)
    }
    Loader {
        id: screen

        anchors.fill: parent
        sourceComponent: GraphicsInfo.api === GraphicsInfo.Software ? painted : rendered
    }
    Component {
        id: painted

        SoftwareVideoItem {}
    }
    Component {
        id: rendered

        VideoOutput {
            id: output

            property bool hasFrame: false

            fillMode: VideoOutput.PreserveAspectCrop

            Connections {
                target: output.videoSink
                enabled: !output.hasFrame

                function onVideoFrameChanged() {
                    output.hasFrame = true
                }
            }
        }
    }
    function start() {
        if (String(view.videoUrl).length === 0)
            return
        if (devices.audioOutputs.length === 0)
            view.soundMissing()
        player.play()
    }

    // Once whoever made the view hears what it says.
    Timer {
        interval: 0
        running: true
        onTriggered: view.start()
    }
}
