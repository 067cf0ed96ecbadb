import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// A page of the window whose content is one column.
TitledPage {
    id: page

    default property alias content: column.data
    property alias spacing: column.spacing

    flickable: Flickable {
        parent: page
        y: page.contentTop
        width: page.width
        height: page.height - y
        contentWidth: width
        contentHeight: column.height + 4 + Theme.pageMargin
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: PageScrollBar {}

        Column {
            id: column

            x: page.columnX
            // The focus ring of the first control is not clipped.
            y: 6
            width: page.columnWidth
        }
    }
}
