import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// A page of the window: a still title over a scrolling column, 648 wide at most and centred in wider windows.
Rectangle {
    id: page

    property string title
    property string subtitle
    readonly property real columnWidth: Math.min(648, width - 2 * Theme.pageMargin)
    /// Stands at the right end of the title.
    property alias header: trailing.data
    default property alias content: column.data
    property alias spacing: column.spacing
    readonly property alias flickable: flickable

    /// Scrolls so far that the item can be seen.
    function reveal(item: Item) {
        const top = item.mapToItem(column, 0, 0).y - 12
        const bottom = top + item.height + 24
        if (top < flickable.contentY)
            flickable.contentY = Math.max(0, top)
        else if (bottom > flickable.contentY + flickable.height)
            flickable.contentY = Math.min(Math.max(0, flickable.contentHeight - flickable.height), bottom - flickable.height)
    }

    function scrollBy(distance: real) {
        flickable.contentY = Math.max(0, Math.min(flickable.contentHeight - flickable.height, flickable.contentY + distance))
    }

    function holds(item: Item): bool {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent) {
            if (ancestor === column)
                return true
        }
        return false
    }

    color: Theme.paper
    Accessible.role: Accessible.Pane
    Accessible.name: title
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp) {
            scrollBy((event.key === Qt.Key_PageDown ? 0.9 : -0.9) * flickable.height)
            event.accepted = true
        }
    }

    readonly property Item focused: Window.activeFocusItem
    onFocusedChanged: {
        if (focused && holds(focused))
            reveal(focused)
    }

    Item {
        id: head

        x: (page.width - page.columnWidth) / 2
        y: 28
        width: page.columnWidth
        height: Math.max(titles.implicitHeight, trailing.implicitHeight) + Theme.cardGap

        Column {
            id: titles

            width: parent.width - (trailing.width > 0 ? trailing.width + 16 : 0)
            spacing: 2

            ThemedText {
                width: parent.width
                visible: text.length > 0
                text: page.title
                role: "pageTitle"
                Accessible.role: Accessible.Heading
            }
            ThemedText {
                width: parent.width
                visible: text.length > 0
                text: page.subtitle
                color: Theme.ink2
            }
        }
        Row {
            id: trailing

            anchors.right: parent.right
            y: Math.max(0, (titles.implicitHeight - height) / 2)
            spacing: 12
        }
    }
    Rectangle {
        y: flickable.y - 1
        width: page.width
        height: 1
        visible: flickable.contentY > 0
        color: Theme.line
    }
    Flickable {
        id: flickable

        y: head.y + head.height
        width: page.width
        height: page.height - y
        contentWidth: width
        contentHeight: column.height + 4 + Theme.pageMargin
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: column

            x: head.x
            // The focus ring of the first control is not clipped.
            y: 6
            width: page.columnWidth
        }

        T.ScrollBar.vertical: T.ScrollBar {
            id: bar

            implicitWidth: 10
            padding: 2
            visible: size < 1
            contentItem: Rectangle {
                implicitWidth: 6
                radius: 3
                color: bar.pressed || bar.hovered ? Theme.ink3 : Theme.controlLine
                opacity: bar.active ? 1 : 0.5
            }
        }
    }
}
