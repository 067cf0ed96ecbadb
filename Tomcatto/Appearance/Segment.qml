import QtQuick
import Tomcatto.Appearance

/// One choice of a `Segmented`.
Item {
    id: segment

    property string text
    property bool selected: false
    property real textScale: 1
    /// How much of its size the label has where all of them have to shrink.
    property real fit: 1
    readonly property real naturalWidth: Math.ceil(boldWidth.advanceWidth) + 24

    signal pressed

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onPressAction: pressed()

    TextMetrics {
        id: boldWidth

        font: Theme.font("section", segment.textScale)
        text: segment.text
    }
    Text {
        anchors.fill: parent
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        text: segment.text
        font: Theme.font(segment.selected ? "section" : "control", Math.max(11 / 13, segment.textScale * segment.fit))
        // Never cut: a label shrinks to the smallest size that we use.
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 11
        color: !segment.enabled ? Theme.disabled : segment.selected || mouse.containsMouse ? Theme.ink : Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        renderType: Text.NativeRendering
        Accessible.ignored: true
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onPressed: segment.pressed()
    }
}
