import QtQuick
import Tomcatto.Appearance

/// A secondary action of the panel. A label that does not fit goes from 13 to 12 to 11 pixels, then drops its symbol,
/// then takes two lines; it is never cut.
PressButton {
    id: control

    /// The action that is asked for now, in the colours of the phase.
    property bool wanted: false
    readonly property real plainRoom: availableWidth
    readonly property real symbolRoom: symbol.length > 0 ? plainRoom - symbolSize - gap : plainRoom
    readonly property int weight: wanted ? Font.DemiBold : Font.Medium
    readonly property int labelSize: width13.advanceWidth <= symbolRoom ? 13 : width12.advanceWidth <= symbolRoom ? 12 : 11
    readonly property real measured: labelSize === 13 ? width13.advanceWidth : labelSize === 12 ? width12.advanceWidth : width11.advanceWidth
    readonly property bool showsSymbol: symbol.length > 0 && width11.advanceWidth <= symbolRoom

    implicitWidth: Math.ceil(width13.advanceWidth) + (symbol.length > 0 ? symbolSize + gap : 0) + 24
    implicitHeight: 40
    phase: "overtime"
    symbolSize: 16
    leftPadding: 8
    rightPadding: 8
    radius: Theme.tileRadius
    textScale: 1
    fill: !enabled ? "transparent" : wanted ? colours.wash : Theme.card
    lineColor: enabled && wanted ? colours.track : Theme.line
    ink: !enabled ? Theme.disabled : wanted ? colours.text : Theme.ink

    TextMetrics {
        id: width13
        font: Theme.sizedFont(13, control.weight, 0)
        text: control.text
    }
    TextMetrics {
        id: width12
        font: Theme.sizedFont(12, control.weight, 0)
        text: control.text
    }
    TextMetrics {
        id: width11
        font: Theme.sizedFont(11, control.weight, 0)
        text: control.text
    }

    contentItem: Item {
        Row {
            anchors.centerIn: parent
            spacing: control.gap

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.showsSymbol
                name: control.symbol
                size: control.symbolSize
                color: control.ink
            }
            Text {
                objectName: "label"
                anchors.verticalCenter: parent.verticalCenter
                width: control.labelSize === 11 && !control.showsSymbol ? control.plainRoom : Math.ceil(control.measured) + 1
                text: control.text
                font: Theme.sizedFont(control.labelSize, control.weight, 0)
                color: control.ink
                wrapMode: Text.Wrap
                lineHeightMode: Text.FixedHeight
                lineHeight: 14
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
        }
    }
}
