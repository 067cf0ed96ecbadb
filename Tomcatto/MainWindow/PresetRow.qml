import QtQuick
import Tomcatto.Appearance

/// One rhythm to choose, with its set drawn to scale.
PresetChoice {
    id: row

    property string durations
    property var segments: []
    /// As wide as this row's figure is, and as wide as that of the widest row, so that all rows look alike.
    readonly property alias naturalFigureWidth: figure.implicitWidth
    property real figureWidth: naturalFigureWidth
    readonly property bool hasRoom: width - 56 - figureWidth - 40 - 198 > 150 * Theme.textScale

    implicitHeight: Math.max(69, texts.implicitHeight + 24)

    Rectangle {
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        width: 20
        height: 20
        radius: 10
        color: "transparent"
        border.width: 2
        border.color: row.selected ? Theme.work.solid : Theme.controlLine

        Rectangle {
            anchors.centerIn: parent
            visible: row.selected
            width: 10
            height: 10
            radius: 5
            color: Theme.work.solid
        }
    }
    Column {
        id: texts

        x: 56
        anchors.verticalCenter: parent.verticalCenter
        width: (bar.visible ? bar.x : figure.x) - x - 12

        QuietText {
            width: parent.width
            text: row.title
            role: "bodyStrong"
        }
        QuietText {
            width: parent.width
            text: row.help
            role: "caption"
            color: Theme.ink2
        }
    }
    SetBar {
        id: bar

        x: row.width - Math.max(row.figureWidth + 45, 118) - width
        anchors.verticalCenter: parent.verticalCenter
        visible: row.hasRoom
        implicitHeight: 9
        width: 198
        height: 9
        segments: row.segments
    }
    QuietText {
        id: figure

        x: row.width - width - 20
        anchors.verticalCenter: parent.verticalCenter
        text: row.durations
        color: Theme.ink2
        wrapMode: Text.NoWrap
    }
}
