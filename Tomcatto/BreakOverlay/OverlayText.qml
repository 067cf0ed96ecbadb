import QtQuick
import Tomcatto.BreakOverlay

/// A text on the overlay. Wraps; never cut.
Text {
    property real lineSize

    color: OverlayStyle.ink
    lineHeightMode: Text.FixedHeight
    lineHeight: Math.round(lineSize)
    verticalAlignment: Text.AlignVCenter
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
