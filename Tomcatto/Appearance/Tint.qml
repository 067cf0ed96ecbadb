import QtQuick

/// How colours change here: fast at first.
ColorAnimation {
    easing.type: Easing.OutCubic
}
