import QtQuick
import Tomcatto.Appearance

/// A page whose content comes with a later version; it says so.
ScrollPage {
    id: page

    title: Texts.text("window.page.statistics")

    Card {
        width: page.columnWidth

        EmptyState {
            width: parent.width
            height: Math.max(200, implicitHeight)
            title: Texts.text("window.later.title")
            text: Texts.text("window.statistics.later")
        }
    }
}
