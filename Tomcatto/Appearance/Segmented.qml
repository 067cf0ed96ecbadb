pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// A choice of a few, side by side. One stop for Tab; the arrow keys move and choose at once.
Item {
    id: control

    property list<string> texts
    property int currentIndex: 0
    property string name
    property real textScale: Theme.textScale
    /// All segments as wide as the widest; they share the width when it is set.
    property bool equal: false
    property bool showFocus: activeFocus && byKey
    readonly property int inset: 3
    /// Of the labels in their widest, selected form.
    readonly property list<real> widths: Array.from({length: labels.count}, (_, index) => (labels.itemAt(index) as Segment)?.naturalWidth ?? 0)
    property bool byKey: false

    /// The user wants another segment, which is the caller's to set.
    signal activated(int index)

    function choose(index: int) {
        if (index >= 0 && index < texts.length && index !== currentIndex)
            activated(index)
    }

    /// How much of their size the labels have: in too narrow a place all shrink alike, and still stand apart.
    function fit(): real {
        const padding = count => count * texts.length + 2 * inset
        return equal || width >= implicitWidth ? 1 : (width - padding(16)) / Math.max(1, implicitWidth - padding(24))
    }

    function segmentWidth(index: int): real {
        if (equal)
            return (width - 2 * inset) / Math.max(1, texts.length)
        const natural = widths[index] ?? 0
        return width >= implicitWidth ? natural : 16 + (natural - 24) * fit()
    }

    function segmentX(index: int): real {
        let x = inset
        for (let before = 0; before < index; ++before)
            x += segmentWidth(before)
        return x
    }

    implicitWidth: 2 * inset + (equal ? Math.max(0, ...widths) * texts.length : widths.reduce((sum, each) => sum + each, 0))
    implicitHeight: Math.max(34, Theme.lineHeight("control", textScale) + 16)
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: name
    Accessible.focusable: true
    onActiveFocusChanged: if (!activeFocus) byKey = false
    Keys.onPressed: event => {
        byKey = true
        switch (event.key) {
        case Qt.Key_Left:
        case Qt.Key_Up:
            choose(currentIndex - 1)
            break
        case Qt.Key_Right:
        case Qt.Key_Down:
            choose(currentIndex + 1)
            break
        case Qt.Key_Home:
            choose(0)
            break
        case Qt.Key_End:
            choose(texts.length - 1)
            break
        default:
            return
        }
        event.accepted = true
    }
    Keys.onReleased: byKey = true

    Rectangle {
        anchors.fill: parent
        radius: Theme.segmentTrackRadius
        color: Theme.sunk
        border.color: Theme.dark || Theme.highContrast ? Theme.line : "transparent"
    }
    FocusRing {
        shown: control.showFocus
        parentRadius: Theme.segmentTrackRadius
    }
    Rectangle {
        visible: control.currentIndex >= 0 && control.currentIndex < control.texts.length
        x: control.segmentX(control.currentIndex)
        y: control.inset
        width: control.segmentWidth(control.currentIndex)
        height: control.height - 2 * control.inset
        radius: Theme.segmentRadius
        color: Theme.raised
        border.color: Theme.line

        Behavior on x { Glide { duration: Theme.switchTime } }
    }

    Repeater {
        id: labels

        model: control.texts
        Segment {
            required property int index

            x: control.segmentX(index)
            y: control.inset
            width: control.segmentWidth(index)
            height: control.height - 2 * control.inset
            text: control.texts[index] ?? ""
            textScale: control.textScale
            fit: control.fit()
            selected: index === control.currentIndex
            onPressed: {
                control.byKey = false
                control.forceActiveFocus(Qt.MouseFocusReason)
                control.choose(index)
            }
        }
    }
}
