import QtQuick
import Tomcatto.Appearance

/// A dark button over a picture, with or without its text.
PressButton {
    id: control

    property bool symbolOnly: false

    implicitWidth: symbolOnly ? 32 : implicitContentWidth + 22
    implicitHeight: 32
    topInset: 2
    bottomInset: 2
    leftInset: symbolOnly ? 2 : 0
    rightInset: symbolOnly ? 2 : 0
    padding: 0
    leftPadding: symbolOnly ? 0 : 11
    rightPadding: leftPadding
    textScale: 1
    label: symbolOnly ? "" : text
    role: "chip"
    symbolSize: 15
    gap: 6
    ink: "#FFFFFF"
    hoverTint: Qt.rgba(1, 1, 1, 0.12)
    pressedTint: Qt.rgba(1, 1, 1, 0.2)
    focusColor: "#F5F5F7"
}
