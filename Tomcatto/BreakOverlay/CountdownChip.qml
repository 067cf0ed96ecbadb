import QtQuick
import Tomcatto.Appearance
import Tomcatto.BreakOverlay

/// The time left on its plate with ears. The item is the plate; the ears stand above it.
Item {
    id: chip

    required property real unit
    required property string time
    required property string spokenTime
    required property string phase
    readonly property real earHeight: 15 * unit

    objectName: "break.countdown.chip"
    implicitWidth: Math.max(248 * unit, face.implicitWidth + 64 * unit)
    implicitHeight: 76 * unit

    SpokenText {
        objectName: "break.countdown.spoken"
        anchors.fill: parent
        name: chip.spokenTime
        Accessible.role: Accessible.StaticText
    }
    ChipShape {
        y: -chip.earHeight
        width: chip.width
        height: chip.height + chip.earHeight
        fill: OverlayStyle.plate(0.8)
        line: OverlayStyle.line
    }
    Row {
        id: face

        anchors.centerIn: parent
        spacing: Math.round(10 * chip.unit)

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "cup.and.saucer.fill"
            size: Math.round(28 * chip.unit)
            color: OverlayStyle.solid(chip.phase)
        }
        TickingText {
            anchors.verticalCenter: parent.verticalCenter
            text: chip.time
            name: ""
            color: OverlayStyle.ink
            lineHeight: Math.round(56 * chip.unit)
            font: OverlayStyle.font(46 * chip.unit, Font.DemiBold)
        }
    }
}
