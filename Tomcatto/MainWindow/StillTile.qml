import QtQuick
import Tomcatto.Appearance

/// A video whose still comes from a view model, in its own time.
VideoTile {
    id: tile

    /// Has `askStill` and answers with `stillCame`.
    required property var source
    property string videoId
    property real stillScale: 1

    property bool complete: false

    function askStill() {
        if (complete && videoId.length > 0)
            source.askStill(videoId, stillScale)
    }

    onStillScaleChanged: askStill()
    onVideoIdChanged: {
        thumbnail = ""
        askStill()
    }
    Component.onCompleted: {
        complete = true
        askStill()
    }

    Connections {
        target: tile.source
        function onStillCame(id, still) {
            if (id === tile.videoId)
                tile.thumbnail = still
        }
    }
}
