pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// The window's pages. One stop for Tab; the arrow keys move and choose at once.
Rectangle {
    id: sidebar

    /// Id, title and symbol of each.
    required property var pages
    required property string page
    required property string name
    property bool compact: false
    readonly property int currentIndex: pages.findIndex(each => each.id === page)

    signal chosen(string id)

    // The keyboard follows where the page was changed from elsewhere.
    onCurrentIndexChanged: {
        for (let index = 0; index < rows.count; ++index) {
            const row = rows.itemAt(index)
            if (index !== currentIndex && row?.activeFocus)
                rows.itemAt(currentIndex).forceActiveFocus(row.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason)
        }
    }

    function go(index: int) {
        const bounded = Math.max(0, Math.min(pages.length - 1, index))
        // First: the row that has the focus may not stop being a stop for Tab.
        rows.itemAt(bounded).forceActiveFocus(Qt.TabFocusReason)
        chosen(pages[bounded].id)
    }

    implicitWidth: compact ? 64 : Math.round(208 * (1 + 0.4 * (Theme.textScale - 1)))
    color: Theme.sunk
    Accessible.role: Accessible.PageTabList
    Accessible.name: name

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }
    Flickable {
        anchors.fill: parent
        contentHeight: column.height + 32
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: column

            x: 12
            y: 16
            width: parent.width - 25
            spacing: 4

            Repeater {
                id: rows

                model: sidebar.pages.length

                SidebarRow {
                    required property int index
                    readonly property var page: sidebar.pages[index] ?? ({})

                    width: column.width
                    text: page.title ?? ""
                    symbol: page.symbol ?? ""
                    compact: sidebar.compact
                    selected: index === sidebar.currentIndex
                    activeFocusOnTab: selected || activeFocus
                    onClicked: sidebar.chosen(page.id)
                    Keys.onUpPressed: sidebar.go(index - 1)
                    Keys.onDownPressed: sidebar.go(index + 1)
                    Keys.onPressed: event => {
                        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
                        if (event.accepted)
                            sidebar.go(event.key === Qt.Key_Home ? 0 : sidebar.pages.length - 1)
                    }
                }
            }
        }
    }
}
