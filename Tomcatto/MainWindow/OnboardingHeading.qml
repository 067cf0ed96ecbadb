import QtQuick
import Tomcatto.Appearance

/// Title and line of one step, centred.
Column {
    id: heading

    required property string title
    required property string text

    x: 40
    width: parent.width - 2 * x
    spacing: 8

    ThemedText {
        width: heading.width
        text: heading.title
        role: "onboardingTitle"
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.Heading
    }
    ThemedText {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(heading.width, Math.round(500 * Theme.textScale))
        text: heading.text
        font: Theme.sizedFont(Math.round(15 * Theme.textScale), Font.Normal, 0)
        lineHeight: Math.round(22 * Theme.textScale)
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
    }
}
