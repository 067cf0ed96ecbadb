import QtQuick
import Tomcatto.Appearance

/// A page whose content comes with a later version; it says so.
ScrollPage {
    id: page

    required property string emptyTitle
    required property string emptyText

    Card {
        width: page.columnWidth

        EmptyState {
            width: parent.width
            height: Math.max(200, implicitHeight)
            title: page.emptyTitle
            text: page.emptyText
        }
    }
}
