import QtQuick
import Tomcatto.Appearance

/// One video with its still. Pressing it ticks it, or starts its download; what that means is the caller's. The
/// thumbnail's corners are rounded in the picture itself.
PressButton {
    id: tile

    property url thumbnail
    property string title
    property string caption
    /// Whether it tells of something that failed.
    property bool captionIsError: false
    /// "active", "resting", "downloading" or "missing".
    property string status: "resting"
    /// Of the download, 0 to 1, and as a text.
    property real progress: 0
    property string progressText
    /// On the chip of a missing video.
    property string sizeText
    property string sizeSymbol: "arrow.down.circle"
    property string previewText
    property bool deletable: false
    property bool showActions: hover.hovered || showFocus || preview.visualFocus || remove.visualFocus
    readonly property bool present: status === "active" || status === "resting"
    readonly property color shade: Qt.rgba(0x22 / 255, 0x1B / 255, 0x18 / 255, 0.8)

    signal previewRequested
    signal deleteRequested

    background: null
    contentItem: null
    implicitWidth: 205
    implicitHeight: 115 + 8 + texts.implicitHeight
    text: title
    // Only says what the status is; the one who set it decides whether it changes.
    checkable: present
    checked: status === "active"
    onToggled: checked = Qt.binding(() => status === "active")
    Accessible.role: present ? Accessible.CheckBox : Accessible.Button
    Accessible.description: caption
    Accessible.checkable: present
    Accessible.checked: checked
    Keys.onDeletePressed: event => {
        if (deletable && !event.isAutoRepeat)
            deleteRequested()
    }

    HoverHandler {
        id: hover
    }

    Item {
        anchors.fill: parent

        Item {
            id: still

            width: tile.width
            height: Math.round(tile.width * 115 / 205)

            Rectangle {
                anchors.fill: parent
                radius: Theme.thumbnailRadius
                color: Theme.sunk
            }
            Image {
                anchors.fill: parent
                source: tile.thumbnail
                sourceSize.width: Math.round(width * Screen.devicePixelRatio)
                sourceSize.height: Math.round(height * Screen.devicePixelRatio)
                asynchronous: true
                fillMode: Image.PreserveAspectCrop
            }
            Rectangle {
                visible: tile.status === "missing" || tile.status === "downloading"
                anchors.fill: parent
                radius: Theme.thumbnailRadius
                color: tile.status === "missing" ? Qt.alpha(Theme.paper, 0.28) : Qt.rgba(0x22 / 255, 0x1B / 255, 0x18 / 255, 0.58)
            }
            Rectangle {
                visible: tile.status === "active"
                anchors.fill: parent
                anchors.margins: -4.5
                radius: Theme.thumbnailRadius + 4.5
                color: "transparent"
                border.width: 2.5
                border.color: Theme.work.solid
            }
            FocusRing {
                shown: tile.showFocus
                anchors.margins: tile.status === "active" ? -8.5 : -4
                parentRadius: Theme.thumbnailRadius + (tile.status === "active" ? 4.5 : 0)
            }
            Rectangle {
                visible: tile.present
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.margins: 10
                width: 24
                height: 24
                radius: 12
                color: tile.status === "active" ? Theme.work.button : Qt.rgba(0x22 / 255, 0x1B / 255, 0x18 / 255, 0.5)
                border.width: tile.status === "active" ? 0 : 2
                border.color: "#FFFFFF"

                Symbol {
                    anchors.centerIn: parent
                    visible: tile.status === "active"
                    name: "checkmark"
                    size: 15
                    color: Theme.work.buttonText
                }
            }
            Rectangle {
                visible: tile.status === "missing" && tile.sizeText.length > 0
                anchors.right: parent.right
                anchors.top: parent.top
                anchors.margins: 10
                width: sizeLabel.implicitWidth + 20
                height: 26
                radius: 13
                color: tile.shade

                ButtonLabel {
                    id: sizeLabel

                    anchors.centerIn: parent
                    symbol: tile.sizeSymbol
                    symbolSize: 14
                    gap: 5
                    text: tile.sizeText
                    font: Theme.font("chip", 1)
                    color: "#FFFFFF"
                }
            }
            Column {
                visible: tile.status === "downloading"
                anchors.centerIn: parent
                spacing: 6

                ProgressRing {
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: 40
                    height: 40
                    progress: tile.progress
                    color: "#FFB780"
                    track: Qt.rgba(1, 1, 1, 0.35)
                }
                QuietText {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: tile.progressText
                    role: "chip"
                    textScale: 1
                    color: "#FFFFFF"
                }
            }
            StillButton {
                id: preview

                anchors.left: parent.left
                anchors.bottom: parent.bottom
                anchors.margins: 10
                visible: tile.showActions && tile.status !== "downloading" && tile.previewText.length > 0
                symbol: "eye"
                text: tile.previewText
                fill: tile.shade
                onClicked: tile.previewRequested()
            }
            StillButton {
                id: remove

                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.margins: 10
                visible: tile.showActions && tile.deletable
                symbolOnly: true
                symbol: "trash"
                text: Texts.text("window.videos.delete")
                fill: tile.shade
                onClicked: tile.deleteRequested()
            }
        }
        Column {
            id: texts

            y: still.height + 8
            width: parent.width

            QuietText {
                width: parent.width
                text: tile.title
                role: "control"
                // A file name: its end tells as much as its beginning.
                elide: Text.ElideMiddle
                // Above its caption, whichever way the name is written.
                horizontalAlignment: Text.AlignLeft
                wrapMode: Text.NoWrap
            }
            NoticeLine {
                width: parent.width
                text: tile.caption
                role: tile.captionIsError ? "captionMedium" : "caption"
                isError: tile.captionIsError
                Accessible.ignored: true
            }
        }
    }
}
