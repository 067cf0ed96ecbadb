pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance

/// The five levels between two words.
Row {
    id: legend

    property real textScale: Theme.textScale
    property real cellSize: 10

    spacing: 6

    ThemedText {
        text: Texts.text("stats.heatmap.less")
        role: "micro"
        textScale: legend.textScale
        color: Theme.ink2
        wrapMode: Text.NoWrap
    }
    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Repeater {
            model: Theme.heat

            Rectangle {
                required property color modelData

                width: legend.cellSize
                height: legend.cellSize
                radius: 3
                color: modelData
            }
        }
    }
    ThemedText {
        text: Texts.text("stats.heatmap.more")
        role: "micro"
        textScale: legend.textScale
        color: Theme.ink2
        wrapMode: Text.NoWrap
    }
}
