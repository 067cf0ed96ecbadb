import QtQuick

/// How positions and shares move here: fast at first.
NumberAnimation {
    easing.type: Easing.OutCubic
}
