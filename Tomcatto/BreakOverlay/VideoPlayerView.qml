import QtQuick
import Tomcatto.BreakOverlay

/// Plays one video without an end, filling itself.
Item {
    id: view

    required property url videoUrl
    required property bool isMuted
    /// Shows the first frame and stops there.
    property bool isStill: false
    readonly property bool hasFrame: player.hasFrame
    signal failed(string reason)
    signal soundMissing

    FilmPlayer {
        id: player

        source: view.videoUrl
        isMuted: view.isMuted
        isStill: view.isStill
        onFailed: reason => view.failed(reason)
        onSoundMissing: view.soundMissing()
    }
    FilmView {
        anchors.fill: parent
        film: player
    }
}
