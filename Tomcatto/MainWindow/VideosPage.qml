import QtQuick
import Tomcatto.Appearance

/// The videos for the breaks: the user's own, which are added here, and those that came along.
Item {
    id: root

    required property var strings
    required property var viewModel

    function words(key: string): string {
        return strings.revision >= 0 ? strings.text(key) : ""
    }

    Component.onCompleted: viewModel.appear()
    Component.onDestruction: viewModel?.disappear()

    ScrollPage {
        id: page

        anchors.fill: parent
        title: root.words("window.page.videos")
        subtitle: root.words("window.videos.subtitle")
        header: PushButton {
            symbol: "eye"
            text: root.words("window.videos.preview_break")
            onClicked: root.viewModel.previewBreak()
        }

        SectionHeading {
            above: 0
            text: root.words("window.videos.yours.title")
        }
        VideoGrid {
            id: ownGrid

            width: page.columnWidth

            // qmllint disable unqualified
            Repeater {
                model: root.viewModel.own.length

                VideoTile {
                    required property int index
                    readonly property var video: root.viewModel.own[index] ?? ({})

                    width: ownGrid.tileWidth
                    height: implicitHeight - 115 + ownGrid.stillHeight
                    thumbnail: video.id ? root.viewModel.still(video.id) : ""
                    title: video.title ?? ""
                    caption: video.caption ?? ""
                    status: video.status ?? "resting"
                    previewText: present ? root.words("window.videos.preview") : ""
                    deleteText: root.words("window.videos.delete")
                    deletable: true
                    onClicked: root.viewModel.toggle(video.id)
                    onPreviewRequested: root.viewModel.preview(video.id)
                    onDeleteRequested: root.viewModel.remove(video.id)
                }
            }
            // qmllint enable unqualified
            AddTile {
                width: ownGrid.tileWidth
                height: Math.max(ownGrid.stillHeight, implicitContentHeight)
                text: root.words("window.videos.add.title")
                hint: root.words("window.videos.add.help")
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
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
                onTextChanged: if (text.length > 0) showProblem.restart()
            }
            Timer {
                id: showProblem

                // After the line has its place.
                interval: 0
                onTriggered: page.reveal(problem)
            }
        }

        SectionHeading {
            visible: root.viewModel.included.length > 0
            text: root.words("window.videos.included.title")
        }
        ThemedText {
            width: page.columnWidth
            visible: root.viewModel.included.length > 0
            bottomPadding: 12
            text: root.words("window.videos.included.help")
            role: "caption"
            color: Theme.ink2
        }
        VideoGrid {
            id: includedGrid

            width: page.columnWidth

            // qmllint disable unqualified
            Repeater {
                model: root.viewModel.included.length

                VideoTile {
                    required property int index
                    readonly property var video: root.viewModel.included[index] ?? ({})

                    width: includedGrid.tileWidth
                    // Without a caption.
                    height: implicitHeight - 115 + includedGrid.stillHeight - Theme.lineHeight("caption", textScale)
                    thumbnail: video.id ? root.viewModel.still(video.id) : ""
                    title: video.title ?? ""
                    // Cannot be ticked: pressing it shows it.
                    status: "included"
                    previewText: root.words("window.videos.preview")
                    onClicked: root.viewModel.preview(video.id)
                    onPreviewRequested: root.viewModel.preview(video.id)
                }
            }
            // qmllint enable unqualified
        }
    }

    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: event => {
            event.acceptProposedAction()
            root.viewModel.addFiles(event.urls)
        }
    }

    UndoBar {
        id: undo

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        width: Math.min(implicitWidth, page.columnWidth)
        actionText: root.words("window.videos.undo")
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
