import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// Which break it is and what to do with it.
Column {
    id: words

    required property real unit
    required property string title
    required property string subtitle
    property int alignment: Text.AlignLeft

    spacing: Math.round(6 * unit)

    OverlayText {
        width: words.width
        text: words.title
        horizontalAlignment: words.alignment
        lineSize: 42 * words.unit
        font: Theme.sizedFont(Math.round(34 * words.unit), Font.DemiBold, -0.4 * words.unit)
    }
    OverlayText {
        width: words.width
        text: words.subtitle
        horizontalAlignment: words.alignment
        lineSize: 26 * words.unit
        font: OverlayStyle.font(18 * words.unit, Font.Normal)
    }
}
