import QtQuick
import Tomcatto.Appearance

/// A text in one of the theme's type roles. Wraps; never cut.
Text {
    id: text

    property string role: "body"
    property real textScale: Theme.textScale

    font: Theme.font(role, textScale)
    color: Theme.ink
    lineHeightMode: Text.FixedHeight
    lineHeight: Theme.lineHeight(role, textScale)
    verticalAlignment: Text.AlignVCenter
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    renderType: Text.NativeRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: text.text
}
