import QtQuick
import Tomcatto.Appearance

/// Symbol and text side by side, centred in the button.
Item {
    id: label

    property string symbol
    property string text
    property color color: Theme.ink
    property font font
    property real symbolSize: 16
    property real gap: 8

    readonly property real symbolRoom: symbol.length === 0 ? 0 : symbolSize + (text.length > 0 ? gap : 0)
    readonly property real naturalWidth: text.length > 0 ? Math.ceil(metrics.advanceWidth) + 1 : 0

    implicitWidth: symbolRoom + naturalWidth
    implicitHeight: Math.max(symbol.length > 0 ? symbolSize : 0, words.implicitHeight)

    TextMetrics {
        id: metrics

        font: label.font
        text: label.text
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: label.gap

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: label.symbol.length > 0
            name: label.symbol
            size: label.symbolSize
            color: label.color
        }
        Text {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            visible: label.text.length > 0
            // A text too wide for the button wraps; it is never cut.
            width: label.width > 0 ? Math.min(label.naturalWidth, Math.max(1, label.width - label.symbolRoom)) : label.naturalWidth
            text: label.text
            font: label.font
            color: label.color
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            renderType: Text.NativeRendering
            Accessible.ignored: true
        }
    }
}
