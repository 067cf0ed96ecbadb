import QtQuick
import Tomcatto.Appearance

/// A surface with a line around it. Its children stand below each other; rows draw their own hairlines.
Rectangle {
    id: card

    default property alias content: column.data
    /// 0 for rows, `Theme.cardPadding` for anything else.
    property real padding: 0
    property alias spacing: column.spacing

    implicitWidth: column.implicitWidth + 2 * padding
    implicitHeight: column.implicitHeight + 2 * padding
    color: Theme.card
    radius: Theme.cardRadius
    border.color: Theme.line

    Column {
        id: column

        x: card.padding
        y: card.padding
        width: card.width - 2 * card.padding
    }
}
