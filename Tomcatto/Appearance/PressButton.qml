import QtQuick
import QtQuick.Templates as T
import Tomcatto.Appearance

/// What all our buttons share: Space and Return press, hover and pressed tints, a ring for keyboard focus only.
T.Button {
    id: control

    /// Name of a symbol; empty for none.
    property string symbol
    /// What is read; the symbol stands before it.
    property string label: text
    property string role: "control"
    property real textScale: Theme.textScale
    property font labelFont: Theme.font(role, textScale)
    property real symbolSize: Math.round(16 * textScale)
    property real gap: 7
    property string phase: "work"
    readonly property var colours: Theme.phase(phase)
    property real radius: Theme.buttonRadius
    property color fill: "transparent"
    property color lineColor: "transparent"
    property color ink: enabled ? Theme.ink : Theme.disabled
    property color hoverTint: Theme.hover
    property color pressedTint: Theme.pressed
    property color focusColor: Theme.focus
    /// Bound to the pointer and the keyboard; a caller may hold them for a picture.
    property bool showHover: hovered
    property bool showFocus: visualFocus

    function pressedByKey(event: KeyEvent) {
        event.accepted = true
        if (!event.isAutoRepeat)
            control.clicked()
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(32, implicitContentHeight + topPadding + bottomPadding)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: event => pressedByKey(event)
    Keys.onEnterPressed: event => pressedByKey(event)

    contentItem: ButtonLabel {
        symbol: control.symbol
        text: control.label
        color: control.ink
        font: control.labelFont
        symbolSize: control.symbolSize
        gap: control.gap
    }
    background: PressSurface {
        radius: control.radius
        color: control.fill
        lineColor: control.lineColor
        hoverTint: control.hoverTint
        pressedTint: control.pressedTint
        focusColor: control.focusColor
        hovered: control.enabled && control.showHover
        down: control.enabled && control.down
        focused: control.showFocus
    }
}
