import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// How to leave, while the view is new.
Rectangle {
    id: hint

    required property real unit
    required property string pressText
    required property string keyText
    required property string skipText

    objectName: "break.skip.hint"
    implicitWidth: words.implicitWidth + 2 * Math.round(19 * unit)
    implicitHeight: Math.round(48 * unit)
    radius: height / 2
    color: OverlayStyle.plate(0.76)
    border.color: OverlayStyle.line
    Accessible.role: Accessible.StaticText
    Accessible.name: (pressText + " " + keyText + " " + skipText).trim()

    Row {
        id: words

        anchors.centerIn: parent
        spacing: Math.round(10 * hint.unit)

        OverlayText {
            anchors.verticalCenter: parent.verticalCenter
            visible: text.length > 0
            text: hint.pressText
            wrapMode: Text.NoWrap
            lineSize: 22 * hint.unit
            font: OverlayStyle.font(16 * hint.unit, Font.Medium)
            Accessible.ignored: true
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            implicitWidth: keyName.implicitWidth + Math.round(20 * hint.unit)
            implicitHeight: Math.round(28 * hint.unit)
            radius: Math.round(Theme.keyCapRadius * hint.unit)
            color: OverlayStyle.keyFill
            border.color: OverlayStyle.keyLine

            OverlayText {
                id: keyName

                anchors.centerIn: parent
                text: hint.keyText
                wrapMode: Text.NoWrap
                lineSize: 20 * hint.unit
                font: OverlayStyle.font(14 * hint.unit, Font.DemiBold)
                Accessible.ignored: true
            }
        }
        OverlayText {
            anchors.verticalCenter: parent.verticalCenter
            visible: text.length > 0
            text: hint.skipText
            wrapMode: Text.NoWrap
            lineSize: 22 * hint.unit
            font: OverlayStyle.font(16 * hint.unit, Font.Medium)
            Accessible.ignored: true
        }
    }
}
