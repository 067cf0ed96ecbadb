pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// A time whose digits do not dance: one cell to a character, all digits in cells of one width. The font's own letter
/// spacing is not used; the cells are a pixel narrower than the widest digit instead.
Item {
    id: ticking

    property string text
    property font font: Theme.font("dialTime", 1)
    property color color: Theme.ink
    property real lineHeight: 0
    /// What a screen reader says; empty where the surroundings say it already.
    property string name: text
    readonly property font cellFont: Theme.sizedFont(font.pixelSize, font.weight, 0)
    readonly property real digitWidth: {
        let widest = 0
        for (const digit of "0123456789")
            widest = Math.max(widest, metrics.advance(digit))
        return widest - 1
    }

    /// Left edge of every cell, and at last the right edge of the text.
    readonly property var edges: {
        const all = [0]
        for (const character of text) {
            const isDigit = character >= "0" && character <= "9"
            all.push(all[all.length - 1] + (isDigit ? digitWidth : metrics.advance(character)))
        }
        return all
    }

    implicitWidth: edges[edges.length - 1]
    implicitHeight: lineHeight > 0 ? lineHeight : Math.ceil(metrics.height)
    Accessible.role: Accessible.StaticText
    Accessible.name: name
    Accessible.ignored: name.length === 0

    FontMetrics {
        id: metrics

        function advance(character: string): real {
            // Naming the font makes those who ask follow its changes.
            return metrics.font.pixelSize > 0 ? metrics.advanceWidth(character) : 0
        }

        font: ticking.cellFont
    }

    Item {
        anchors.centerIn: parent
        width: ticking.implicitWidth
        height: Math.ceil(metrics.height)

        Repeater {
            model: ticking.text.length

            Text {
                required property int index

                x: ticking.edges[index] ?? 0
                width: (ticking.edges[index + 1] ?? x) - x
                text: ticking.text.charAt(index)
                font: ticking.cellFont
                color: ticking.color
                horizontalAlignment: Text.AlignHCenter
                textFormat: Text.PlainText
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
        }
    }
}
