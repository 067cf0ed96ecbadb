import QtQuick
import Tomcatto.Appearance

/// One line of a card with controls of its own: title and help at the left, the controls at the right. Where they leave
/// the texts too little room they stand below instead. Fills its parent's width.
Item {
    id: row

    property string title
    property string help
    /// Help that reports something wrong, with the warning symbol.
    property bool helpIsError: false
    /// A phase's name: its colour stands as a dot before the title.
    property string dot
    /// Whether a hairline parts it from the row above.
    property bool separated: y > 0
    default property alias controls: holder.data
    /// The room that controls have at most.
    readonly property real controlRoom: width - 2 * Theme.cardPadding
    readonly property bool stacked: holder.implicitWidth > 0.66 * controlRoom
    readonly property real textWidth: stacked ? controlRoom : controlRoom - (holder.implicitWidth > 0 ? holder.implicitWidth + 16 : 0)

    width: parent ? parent.width : implicitWidth
    implicitWidth: 320
    implicitHeight: stacked ? texts.implicitHeight + holder.implicitHeight + 28
                            : Math.max(52, Math.max(texts.implicitHeight, holder.implicitHeight) + 16)

    Rectangle {
        visible: row.separated
        width: parent.width
        height: 1
        color: Theme.line
    }
    Rectangle {
        id: mark

        x: Theme.cardPadding
        y: texts.y + (Theme.lineHeight("rowTitle", Theme.textScale) - height) / 2
        visible: row.dot.length > 0
        width: 10
        height: 10
        radius: 5
        color: Theme.phase(row.dot).solid
    }
    Column {
        id: texts

        x: Theme.cardPadding + (mark.visible ? 22 : 0)
        y: row.stacked ? 10 : (row.height - implicitHeight) / 2
        width: row.textWidth - (mark.visible ? 22 : 0)

        ThemedText {
            width: parent.width
            text: row.title
            role: "rowTitle"
        }
        NoticeLine {
            width: parent.width
            visible: row.help.length > 0
            text: row.help
            isError: row.helpIsError
        }
    }
    Row {
        id: holder

        x: row.stacked ? Theme.cardPadding : row.width - Theme.cardPadding - width
        y: row.stacked ? texts.y + texts.height + 8 : (row.height - height) / 2
        spacing: 12
    }
}
