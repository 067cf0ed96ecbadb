import QtQuick
import Tomcatto.Appearance

/// A short text beside the item that holds it, above everything else of the window. Keeps itself inside the window: a
/// text too wide for it takes lines of about one length.
Item {
    id: tip

    property string text
    property real textScale: Theme.textScale
    property bool wanted: false
    /// Milliseconds of wanting before it shows.
    property int delay: 600
    /// Whether it stands below although there is room above, where something matters more.
    property bool standsBelow: false
    /// Point in the holder's coordinates that the tip stands over; below it where there is no room above.
    property real targetX: parent ? parent.width / 2 : 0
    property real targetTop: 0
    property real targetBottom: parent ? parent.height : 0
    readonly property bool shown: bubble.visible

    function place() {
        const layer = bubble.parent
        if (!layer || !tip.parent)
            return
        const above = tip.parent.mapToItem(layer, targetX, targetTop - 6)
        const below = tip.parent.mapToItem(layer, targetX, targetBottom + 6)
        const left = above.x - bubble.width / 2
        bubble.x = Math.round(Math.max(4, Math.min(left, layer.width - bubble.width - 4)))
        bubble.y = Math.round(above.y - bubble.height >= 4 && !standsBelow ? above.y - bubble.height : below.y)
    }

    width: 0
    height: 0
    onTargetXChanged: place()
    onTargetTopChanged: place()

    Timer {
        id: patience

        interval: tip.delay
        running: tip.wanted && tip.text.length > 0
        onTriggered: tip.place()
    }

    // After the surroundings have been laid out.
    Timer {
        id: settling

        interval: 1
        onTriggered: tip.place()
    }

    Rectangle {
        id: bubble

        parent: tip.Window.contentItem ?? tip
        z: 1000
        visible: tip.wanted && tip.text.length > 0 && (tip.delay === 0 || !patience.running)
        width: label.width + 16
        height: label.implicitHeight + 8
        radius: Theme.tooltipRadius
        color: Theme.ink
        onVisibleChanged: settling.restart()
        onWidthChanged: tip.place()

        Text {
            id: label

            readonly property real room: (bubble.parent?.width ?? 0) - 24
            readonly property int lines: Math.ceil(implicitWidth / Math.max(1, room))

            anchors.centerIn: parent
            // A fifth more than its share, so that a long word does not make one line more.
            width: lines < 2 ? implicitWidth : Math.min(room, Math.ceil(implicitWidth / lines * 1.2))
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            text: tip.text
            font: Theme.font("captionMedium", tip.textScale)
            color: Theme.paper
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.lineHeight("captionMedium", tip.textScale)
            textFormat: Text.PlainText
            renderType: Text.NativeRendering
            Accessible.ignored: true
        }
    }
}
