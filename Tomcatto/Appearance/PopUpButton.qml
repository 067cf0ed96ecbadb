pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// A choice from a list that opens over the button. Arrows choose, Space and Return open and take, Esc closes.
T.ComboBox {
    id: control

    property string name
    property bool showFocus: visualFocus

    // At the release, since that of an open list takes the choice.
    function openByKey(event: KeyEvent) {
        event.accepted = (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && !popup.visible && !event.isAutoRepeat
        if (event.accepted)
            popup.open()
    }

    implicitWidth: 170
    implicitHeight: Math.max(32, label.implicitHeight + 14)
    leftPadding: 12
    rightPadding: 32
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Keys.onReleased: event => openByKey(event)
    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: displayText

    background: PressSurface {
        radius: Theme.buttonRadius
        color: control.enabled ? Theme.card : Theme.sunk
        lineColor: Theme.line
        hovered: control.enabled && control.hovered
        down: control.enabled && control.down
        focused: control.showFocus
    }
    QuietText {
        id: label

        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        text: control.displayText
        role: "control"
        color: control.enabled ? Theme.ink : Theme.disabled
    }
    indicator: Symbol {
        x: control.width - width - 12
        y: (control.height - height) / 2
        name: "chevron.up.chevron.down"
        size: 16
        color: Theme.ink2
    }
    delegate: T.ItemDelegate {
        id: choice

        required property int index
        readonly property bool chosen: index === control.currentIndex

        width: ListView.view ? ListView.view.width : control.width
        implicitHeight: Math.max(32, implicitContentHeight + 12)
        highlighted: control.highlightedIndex === index
        text: control.textAt(index)
        background: Rectangle {
            radius: Theme.keyCapRadius
            color: choice.highlighted ? Theme.hover : "transparent"
        }
        contentItem: QuietText {
            leftPadding: 10
            rightPadding: 28
            text: choice.text
            role: choice.chosen ? "section" : "control"
        }
        Symbol {
            visible: choice.chosen
            x: parent.width - width - 8
            anchors.verticalCenter: parent.verticalCenter
            name: "checkmark"
            size: 14
            color: Theme.work.text
        }
    }
    popup: T.Popup {
        y: control.height + 4
        width: control.width
        implicitHeight: contentItem.implicitHeight + 10
        padding: 5
        contentItem: ListView {
            clip: true
            implicitHeight: Math.min(contentHeight, 320)
            model: control.popup.visible ? control.delegateModel : null
            currentIndex: control.highlightedIndex
        }
        background: Rectangle {
            radius: Theme.segmentTrackRadius
            color: Theme.card
            border.color: Theme.controlLine
        }
    }
}
