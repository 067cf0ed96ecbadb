import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// One line of a card: title, help and whatever stands at its right end. With `switchable` the whole row is the hit area
/// of its switch, with `navigates` it is a button with a chevron. Fills its parent's width.
T.AbstractButton {
    id: row

    property string title
    property string help
    /// Help that reports something wrong, with the warning symbol.
    property bool helpIsError: false
    /// A refusal or a conflict under the row, right-aligned, told to a screen reader.
    property string notice
    property string symbol
    property bool switchable: false
    /// What the switch would heed is told by nothing here: `help` says so.
    property bool untold: false
    property bool navigates: false
    property string value
    property bool showHover: hovered
    property bool showFocus: visualFocus
    readonly property bool interactive: switchable || navigates
    /// Where the right end leaves the texts too little room, it stands below them.
    readonly property bool stacked: trailingRow.width > 0.66 * body.width
    /// Whether it is the card's first or last row, whose corners are round; a row inside another item is told.
    property bool isFirst: y <= 0
    property bool isLast: !parent || y + height >= parent.height - 0.5
    default property alias trailing: callerRow.data

    function spoken(first: string, second: string): string {
        return first.length > 0 && second.length > 0 ? first + ", " + second : first + second
    }

    function press() {
        if (checkable) {
            toggle()
            toggled()
        }
        clicked()
    }

    function pressedByKey(event: KeyEvent) {
        event.accepted = interactive && !event.isAutoRepeat
        if (event.accepted)
            press()
    }

    width: parent ? parent.width : implicitWidth
    implicitWidth: 320
    implicitHeight: Math.max(52, body.implicitHeight + 16)
    text: title
    checkable: switchable
    hoverEnabled: interactive
    focusPolicy: interactive ? Qt.StrongFocus : Qt.NoFocus
    // A row that does nothing is not an element of its own: its texts are.
    Accessible.ignored: !interactive
    Accessible.role: switchable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: title
    Accessible.checkable: switchable
    Accessible.checked: checked
    Accessible.description: spoken(help, spoken(value, notice))
    Keys.onReturnPressed: event => pressedByKey(event)
    Keys.onEnterPressed: event => pressedByKey(event)

    background: Item {
        // Opaque tints, so that the round and the square half may overlap.
        Rectangle {
            visible: row.interactive && row.enabled && (row.showHover || row.down)
            anchors.fill: parent
            anchors.margins: 1
            radius: row.isFirst || row.isLast ? Theme.cardRadius - 1 : 0
            color: Theme.blend(Qt.alpha(tint, 1), Theme.card, tint.a)
            readonly property color tint: row.down ? Theme.pressed : Theme.hover

            Rectangle {
                visible: row.isFirst !== row.isLast
                y: row.isFirst ? parent.height / 2 : 0
                width: parent.width
                height: parent.height / 2
                color: parent.color
            }
        }
        Rectangle {
            visible: !row.isFirst
            width: parent.width
            height: 1
            color: Theme.line
        }
        Rectangle {
            visible: row.navigates && row.showFocus
            anchors.fill: parent
            anchors.margins: 3
            color: "transparent"
            radius: Theme.buttonRadius
            border.width: 2
            border.color: Theme.focus
        }
    }

    Notice {
        text: row.notice
    }
    Item {
        anchors.fill: parent

        Column {
            id: body

            x: Theme.cardPadding
            width: row.width - 2 * Theme.cardPadding
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Item {
                width: parent.width
                height: row.stacked ? texts.height + 8 + trailingRow.height
                                    : Math.max(36, texts.height, trailingRow.height)

                Symbol {
                    id: mark

                    anchors.verticalCenter: parent.verticalCenter
                    visible: row.symbol.length > 0
                    name: row.symbol
                    size: 20
                    color: Theme.work.text
                }
                Column {
                    id: texts

                    x: mark.visible ? 32 : 0
                    y: row.stacked ? 0 : (parent.height - height) / 2
                    width: parent.width - x - (trailingRow.width > 0 && !row.stacked ? trailingRow.width + 16 : 0)

                    ThemedText {
                        width: parent.width
                        text: row.title
                        role: "rowTitle"
                        color: row.untold ? Theme.ink2 : row.enabled ? Theme.ink : Theme.disabled
                        Accessible.ignored: row.interactive
                    }
                    NoticeLine {
                        width: parent.width
                        visible: row.help.length > 0
                        text: row.help
                        isError: row.helpIsError
                        Accessible.ignored: row.interactive
                    }
                }
                Row {
                    id: trailingRow

                    x: row.stacked ? texts.x : parent.width - width
                    y: row.stacked ? texts.height + 8 : (parent.height - height) / 2
                    spacing: 12

                    // Before the row's own control, so that the controls of all rows stand below one another.
                    Row {
                        id: callerRow

                        anchors.verticalCenter: parent.verticalCenter
                        spacing: 12
                        // Whatever a caller puts here stands on the row's middle line.
                        onChildrenChanged: {
                            for (let index = 0; index < children.length; ++index)
                                children[index].anchors.verticalCenter = verticalCenter
                        }
                    }
                    ThemedText {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: row.value.length > 0
                        text: row.value
                        font: Theme.sizedFont(Math.round(13 * Theme.textScale), Font.Normal, 0)
                        color: Theme.ink2
                        wrapMode: Text.NoWrap
                        Accessible.ignored: row.interactive
                    }
                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: row.navigates
                        name: "chevron.right"
                        size: 16
                        color: Theme.ink3
                    }
                    SwitchTrack {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: row.switchable
                        checked: row.checked
                        focused: row.switchable && row.showFocus
                    }
                }
            }
            NoticeLine {
                anchors.right: parent.right
                width: Math.min(parent.width, implicitWidth)
                visible: row.notice.length > 0
                text: row.notice
                role: "captionMedium"
                isError: true
            }
        }
    }
}
