pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// The videos for the breaks: the user's own, which are added here, those of the library, and those that came along.
Item {
    id: root

    required property VideosPageViewModel viewModel

    /// Every tile of the user's is as high as the one with the longest caption, so a row's place is known without it.
    readonly property real tileHeight: ownGrid.stillHeight + 8 + Theme.lineHeight("control", Theme.textScale) + longestCaption.implicitHeight
    readonly property real rowHeight: Math.max(100, tileHeight + ownGrid.rowSpacing)
    /// Only the rows that are seen are made, and two more at either end.
    readonly property int firstRow: Math.floor((page.flickable.contentY - ownGrid.y) / rowHeight) - 2
    readonly property int lastRow: Math.floor((page.flickable.contentY - ownGrid.y + page.flickable.height) / rowHeight) + 2
    /// Number of the tile with the keyboard, which stays wherever the list is scrolled to.
    property int focusedTile: -1
    /// Pixels of a still for one of a small tile.
    readonly property real stillScale: Math.ceil(Screen.devicePixelRatio * ownGrid.tileWidth / 205 * 2 - 0.1) / 2

    Component.onCompleted: viewModel.appear()
    Component.onDestruction: viewModel?.disappear()

    ThemedText {
        id: longestCaption

        visible: false
        width: ownGrid.tileWidth
        role: "caption"
        text: root.viewModel.longestCaption
    }
    ScrollPage {
        id: page

        anchors.fill: parent
        title: Texts.text("window.page.videos")
        subtitle: Texts.text("window.videos.subtitle")
        header: PushButton {
            symbol: "eye"
            text: Texts.text("window.videos.preview_break")
            onClicked: root.viewModel.previewBreak()
        }

        SectionHeading {
            above: 0
            text: Texts.text("window.videos.yours.title")
        }
        VideoGrid {
            id: ownGrid

            width: page.columnWidth

            Repeater {
                model: root.viewModel.own

                Item {
                    id: place

                    required property int index
                    required property string videoId
                    required property string title
                    required property string caption
                    required property string status
                    readonly property int row: Math.floor(index / ownGrid.columns)

                    width: ownGrid.tileWidth
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
                            status: place.status
                            previewText: present ? Texts.text("window.videos.preview") : ""
                            deletable: true
                            onClicked: root.viewModel.toggle(place.videoId)
                            onPreviewRequested: root.viewModel.preview(place.videoId)
                            onDeleteRequested: root.viewModel.remove(place.videoId)
                            onActiveFocusChanged: if (activeFocus)
                                root.focusedTile = place.index

                            Connections {
                                // The still of a video that was just added comes after it.
                                target: root.viewModel
                                enabled: String(tile.thumbnail).length === 0
                                function onChanged() { tile.askStill() }
                            }
                        }
                    }
                }
            }
            AddTile {
                width: ownGrid.tileWidth
                height: Math.max(ownGrid.stillHeight, implicitContentHeight)
                text: Texts.text("window.videos.add.title")
                hint: Texts.text("window.videos.add.help")
                dropping: drop.containsDrag
                onClicked: root.viewModel.chooseFiles()
            }
        }
        Item {
            width: page.columnWidth
            height: visible ? problem.implicitHeight + 12 : 0
            visible: problem.text.length > 0

            NoticeLine {
                id: problem

                y: 12
                width: parent.width
                isError: true
                text: root.viewModel.error
                onTextChanged: if (text.length > 0) showProblem.restart()
            }
            Notice {
                text: problem.text
            }
            Timer {
                id: showProblem

                // After the line has its place.
                interval: 0
                onTriggered: page.reveal(problem)
            }
        }

        VideoLibrary {
            width: page.columnWidth
            viewModel: root.viewModel.library
            seenFrom: page.flickable.contentY - y
            seenTo: seenFrom + page.flickable.height
            stillScale: root.stillScale
        }

        SectionHeading {
            visible: root.viewModel.included.length > 0
            text: Texts.text("window.videos.included.title")

            ThemedText {
                width: Math.min(implicitWidth, 0.7 * page.columnWidth)
                text: Texts.text("window.videos.included.help")
                role: "caption"
                color: Theme.ink2
                horizontalAlignment: Text.AlignRight
            }
        }
        VideoGrid {
            id: includedGrid

            width: page.columnWidth

            Repeater {
                model: root.viewModel.included.length

                StillTile {
                    required property int index
                    readonly property var video: root.viewModel.included[index] ?? ({})

                    source: root.viewModel
                    videoId: video.id ?? ""
                    stillScale: root.stillScale
                    width: includedGrid.tileWidth
                    // Without a caption.
                    height: implicitHeight - 115 + includedGrid.stillHeight - Theme.lineHeight("caption", textScale)
                    title: video.title ?? ""
                    // Cannot be ticked: pressing it shows it.
                    status: "included"
                    previewText: Texts.text("window.videos.preview")
                    onClicked: root.viewModel.preview(video.id)
                    onPreviewRequested: root.viewModel.preview(video.id)
                }
            }
        }
    }

    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: event => {
            event.acceptProposedAction()
            root.viewModel.dropFiles(event.urls.map(String))
        }
    }

    UndoBar {
        id: undo

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        columnWidth: page.columnWidth
        onUndone: root.viewModel.undoRemoval()
        onExpired: root.viewModel.forgetRemoval()
    }
    Connections {
        function onDeletedChanged() {
            // Closed first: a further video has its own six seconds.
            undo.open = false
            if (root.viewModel.deletedText.length > 0) {
                undo.text = root.viewModel.deletedText
                undo.open = true
            }
        }

        target: root.viewModel
    }
}
