import QtQuick
import Tomcatto.Appearance

/// A switch of good manners. While it is on and there is something to choose, that stands on a second line; where
/// nothing tells of what it heeds, it can be turned off but not on.
Item {
    id: row

    property string title
    property string help
    property bool told: true
    property bool checked: false
    property string choiceTitle
    property list<string> choices
    property int choice: 0

    signal toggled(bool isOn)
    signal chosen(int index)

    width: parent ? parent.width : implicitWidth
    implicitWidth: 320
    implicitHeight: line.implicitHeight + (second.visible ? second.height + 8 : 0)

    ListRow {
        id: line

        width: row.width
        isFirst: row.y <= 0
        isLast: !second.visible && (!row.parent || row.y + row.height >= row.parent.height - 0.5)
        title: row.title
        help: row.help
        untold: !row.told
        enabled: row.told || row.checked
        switchable: true
        checked: row.checked
        onToggled: row.toggled(checked)
        // Keys reach nothing that is disabled.
        onEnabledChanged: if (!enabled && focus)
            nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    }
    Item {
        id: second

        readonly property bool stacked: label.implicitWidth + 16 + segments.implicitWidth > width

        x: Theme.cardPadding
        y: line.height - 4
        width: row.width - 2 * Theme.cardPadding
        height: segments.y + segments.height
        visible: row.choices.length > 0

        QuietText {
            id: label

            y: second.stacked ? 4 : (segments.height - height) / 2
            text: row.choiceTitle
            role: "caption"
            color: Theme.ink2
            wrapMode: Text.NoWrap
        }
        Segmented {
            id: segments

            x: second.stacked ? 0 : second.width - width
            y: second.stacked ? label.y + label.height + 8 : 0
            width: Math.min(implicitWidth, second.width)
            texts: row.choices
            currentIndex: row.choice
            name: row.title + ", " + row.choiceTitle
            onActivated: index => row.chosen(index)
        }
    }
}
