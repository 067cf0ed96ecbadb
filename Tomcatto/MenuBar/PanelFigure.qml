import QtQuick
import Tomcatto.Appearance

/// One figure in a small card: numbers with their units over what they count.
Rectangle {
    id: figure

    property var parts: []
    property string label

    radius: Theme.cardRadius
    color: Theme.card
    border.color: Theme.line
    Accessible.role: Accessible.StaticText

    Row {
        x: 13
        y: 11
        spacing: 3

        Repeater {
            model: figure.parts

            // qmllint disable unqualified
            Text {
                required property var modelData

                anchors.baseline: parent?.top
                anchors.baselineOffset: 18
                text: modelData.text
                font: Theme.font(modelData.isUnit ? "figureUnitSmall" : "figureSmall", 1)
                color: modelData.isUnit ? Theme.ink2 : Theme.ink
                textFormat: Text.PlainText
                renderType: Text.NativeRendering
                Accessible.ignored: true
            }
            // qmllint enable unqualified
        }
    }
    ThemedText {
        x: 13
        y: 36
        width: parent.width - 20
        text: figure.label
        role: "micro"
        textScale: 1
        color: Theme.ink2
        Accessible.ignored: true
    }
}
