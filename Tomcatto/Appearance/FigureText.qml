pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// A figure: numbers and smaller units on one base line. Where it has too little room it gets smaller, nothing is cut.
Item {
    id: figure

    /// {text, isUnit}
    property var parts: []
    property string role: "figure"
    property string unitRole: "figureUnit"
    property real textScale: Theme.textScale
    property real gap: 4
    readonly property real natural: parts.reduce((sum, part) => sum + (part.isUnit ? unit : number).advanceWidth(part.text) + row.spacing, -row.spacing)
    readonly property real fit: textScale * Math.max(0.1, Math.min(1, width / Math.max(1, natural)))

    implicitHeight: Theme.lineHeight(role, textScale)

    FontMetrics {
        id: number

        font: Theme.font(figure.role, figure.textScale)
    }
    FontMetrics {
        id: unit

        font: Theme.font(figure.unitRole, figure.textScale)
    }
    Row {
        id: row

        spacing: figure.gap

        Repeater {
            model: figure.parts

            Text {
                required property var modelData

                anchors.baseline: parent?.top
                anchors.baselineOffset: Math.round((figure.height + number.ascent - number.descent) / 2)
                text: modelData.text
                font: Theme.font(modelData.isUnit ? figure.unitRole : figure.role, figure.fit)
                color: modelData.isUnit ? Theme.ink2 : Theme.ink
                textFormat: Text.PlainText
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
        }
    }
}
