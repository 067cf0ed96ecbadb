import QtQuick
import Tomcatto.Appearance

/// A page of the window: a still title over something that scrolls, 648 wide at most and centred in wider windows.
Rectangle {
    id: page

    property string title
    property string subtitle
    readonly property real columnWidth: Math.min(648, width - 2 * Theme.pageMargin)
    readonly property real columnX: (width - columnWidth) / 2
    /// Stands at the right end of the title, or below it where there is no room.
    property alias header: trailing.data
    /// What scrolls, a child of the page that begins at `contentTop`.
    required property Flickable flickable
    readonly property real contentTop: head.y + head.height
    /// Where it begins.
    readonly property real firstY: flickable.originY - flickable.topMargin

    /// Scrolls so far that the item can be seen.
    function reveal(item: Item) {
        const top = item.mapToItem(flickable.contentItem, 0, 0).y - 18
        const bottom = top + item.height + 24
        if (top < flickable.contentY)
            scrollTo(top)
        else if (bottom > flickable.contentY + flickable.height)
            scrollTo(bottom - flickable.height)
    }

    function scrollTo(y: real) {
        const last = flickable.originY + flickable.contentHeight + flickable.bottomMargin - flickable.height
        flickable.contentY = Math.max(firstY, Math.min(last, y))
    }

    function holds(item: Item): bool {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent) {
            if (ancestor === flickable.contentItem)
                return true
        }
        return false
    }

    color: Theme.paper
    Accessible.role: Accessible.Pane
    Accessible.name: title
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp) {
            scrollTo(flickable.contentY + (event.key === Qt.Key_PageDown ? 0.9 : -0.9) * flickable.height)
            event.accepted = true
        }
    }

    Connections {
        target: page.Window.window
        function onActiveFocusItemChanged() {
            const focused = page.Window.activeFocusItem
            if (focused && page.holds(focused))
                page.reveal(focused)
        }
    }

    Item {
        id: head

        readonly property bool stacked: trailing.width > 0 && titleWidth.advanceWidth + 16 + trailing.width > width

        x: page.columnX
        y: 28
        width: page.columnWidth
        height: (stacked ? trailing.y + trailing.height : titles.implicitHeight) + Theme.cardGap

        TextMetrics {
            id: titleWidth

            font: Theme.font("pageTitle", Theme.textScale)
            text: page.title
        }
        Column {
            id: titles

            width: parent.width - (trailing.width > 0 && !head.stacked ? trailing.width + 16 : 0)
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

            x: head.stacked ? 0 : parent.width - width
            y: head.stacked ? titles.implicitHeight + 8 : (titles.implicitHeight - height) / 2
            spacing: 12
        }
    }
    Rectangle {
        y: page.contentTop - 1
        width: page.width
        height: 1
        visible: page.flickable.contentY > page.firstY
        color: Theme.line
    }
}
