import QtQuick
import Tomcatto.Appearance

/// A text that a screen reader says when it comes.
SpokenText {
    property string text

    isNotice: true
    Accessible.role: Accessible.Notification
    onTextChanged: announce(text)
}
