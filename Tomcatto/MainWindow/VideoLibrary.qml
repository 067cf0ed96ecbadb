pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The remote library on the page of videos: what was last checked, and a tile for each of its videos. Empty if
/// there is no library.
Column {
    id: root

    required property RemoteLibraryViewModel viewModel
    /// What is seen of the page, in the coordinates of this item.
    required property real seenFrom
    required property real seenTo
    required property real stillScale

    readonly property real tileHeight: grid.stillHeight + 8 + Theme.lineHeight("control", Theme.textScale) + 2 * Theme.lineHeight("caption", Theme.textScale)
    readonly property real rowHeight: Math.max(100, tileHeight + grid.rowSpacing)
    /// Only the rows that are seen are made, and two more at either end.
    readonly property int firstRow: Math.floor((seenFrom - grid.y) / rowHeight) - 2
    readonly property int lastRow: Math.floor((seenTo - grid.y) / rowHeight) + 2
    /// Number of the tile with the keyboard, which stays wherever the list is scrolled to.
    property int focusedTile: -1

    visible: viewModel.isEnabled
    Component.onCompleted: viewModel.appear()
    Component.onDestruction: viewModel?.disappear()

    SectionHeading {
        text: Texts.text("window.videos.library.title")

        ThemedText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.viewModel.checkedText
            role: "caption"
            color: Theme.ink2
        }
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            text: Texts.text("window.videos.library.refresh")
            symbol: root.viewModel.isChecking ? "" : "arrow.clockwise"
            onClicked: root.viewModel.refresh()

            ProgressRing {
                id: ring

                anchors.centerIn: parent
                width: 17
                height: 17
                visible: root.viewModel.isChecking
                thickness: 2
                progress: 0.25
                color: Theme.work.solid
                track: Theme.line
            }
            Timer {
                interval: 1000
                repeat: true
                running: ring.visible
                onTriggered: ring.rotation = (ring.rotation + 90) % 360
            }
        }
    }
    Notice {
        text: root.viewModel.problem
    }
    Item {
        width: root.width
        height: card.height + 12
        visible: root.viewModel.problem.length > 0

        Card {
            id: card

            width: parent.width

            ListRow {
                symbol: "exclamationmark.triangle"
                title: root.viewModel.problem

                PushButton {
                    text: Texts.text("button.try_again")
                    onClicked: root.viewModel.refresh()
                }
            }
        }
    }
    Card {
        width: root.width
        visible: root.viewModel.isEmpty && root.viewModel.problem.length === 0 && !root.viewModel.isChecking

        EmptyState {
            width: parent.width
            title: Texts.text("window.videos.library.empty.title")
            text: Texts.text("window.videos.library.empty.help")
        }
    }
    VideoGrid {
        id: grid

        width: root.width

        Repeater {
            model: root.viewModel.videos

            Item {
                id: place

                required property int index
                required property string videoId
                required property string title
                required property string caption
                required property bool hasFailed
                required property string status
                required property real progress
                required property string progressText
                required property string chip
                required property string chipSymbol
                readonly property int row: Math.floor(index / grid.columns)

                width: grid.tileWidth
                height: root.tileHeight

                Wanted {
                    when: (place.row >= root.firstRow && place.row <= root.lastRow) || place.index === root.focusedTile

                    StillTile {
                        id: tile

                        source: root.viewModel
                        videoId: place.videoId
                        stillScale: root.stillScale
                        width: place.width
                        height: place.height
                        title: place.title
                        caption: place.caption
                        captionIsError: place.hasFailed
                        status: place.status
                        progress: place.progress
                        progressText: place.progressText
                        sizeText: place.chip
                        sizeSymbol: place.chipSymbol
                        previewText: present ? Texts.text("window.videos.preview") : ""
                        deletable: present
                        onClicked: root.viewModel.press(place.videoId)
                        onPreviewRequested: root.viewModel.preview(place.videoId)
                        onDeleteRequested: root.viewModel.remove(place.videoId)
                        onActiveFocusChanged: if (activeFocus)
                            root.focusedTile = place.index

                        Connections {
                            target: root.viewModel
                            function onStillReady(id) {
                                if (id === place.videoId)
                                    tile.askStill()
                            }
                        }
                    }
                }
            }
        }
    }
}
