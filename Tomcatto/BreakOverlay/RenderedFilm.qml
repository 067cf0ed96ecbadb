import QtQuick
import QtMultimedia
import Tomcatto.BreakOverlay

/// A film that the graphics card draws. A file of its own, so that without one its toolkit is not loaded.
VideoOutput {
    id: output

    required property FilmPlayer film

    fillMode: VideoOutput.PreserveAspectCrop

    Binding {
        target: output.film
        property: "sink"
        value: output.videoSink
    }
}
