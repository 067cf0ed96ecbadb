import QtQuick
import Tomcatto.Appearance

/// A text that something around it says to a screen reader.
ThemedText {
    Accessible.ignored: true
}
