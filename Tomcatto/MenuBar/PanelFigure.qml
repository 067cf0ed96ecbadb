pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// One figure in a small card: numbers with their units over what they count.
Rectangle {
    id: figure

    property var parts: []
    property string label
    // Many hours in a language with long units: the whole figure gets smaller, nothing is cut.
    readonly property real natural: parts.reduce((sum, part) => sum + (part.isUnit ? unit : number).advanceWidth(part.text) + row.spacing, 0)
    readonly property real fit: Math.max(0.1, Math.min(1, (width - row.x - 9) / Math.max(1, natural)))

    radius: Theme.cardRadius
    color: Theme.card
    border.color: Theme.line
    Accessible.role: Accessible.StaticText

    FontMetrics {
        id: number

        font: Theme.font("figureSmall", 1)
    }
    FontMetrics {
        id: unit

        font: Theme.font("figureUnitSmall", 1)
    }
    Row {
        id: row

        x: 13
        y: 11
        spacing: 3

        Repeater {
            model: figure.parts

            Text {
                required property var modelData

                anchors.baseline: parent?.top
                anchors.baselineOffset: 18
                text: modelData.text
                font: Theme.font(modelData.isUnit ? "figureUnitSmall" : "figureSmall", figure.fit)
                color: modelData.isUnit ? Theme.ink2 : Theme.ink
                textFormat: Text.PlainText
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
        }
    }
    QuietText {
        x: 13
        y: 36
        width: parent.width - 20
        text: figure.label
        role: "micro"
        textScale: 1
        color: Theme.ink2
    }
}
