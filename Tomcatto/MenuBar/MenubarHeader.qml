import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// Quit, a line about the phase, statistics and settings.
Item {
    id: header

    required property MenubarPanelViewModel viewModel

    implicitHeight: 32

    QuitChromeButton {
        x: 8
        viewModel: header.viewModel
    }
    ThemedText {
        // In the middle of the panel while it fits between the buttons on either side.
        x: Math.round((parent.width - width) / 2)
        width: Math.min(136, implicitWidth)
        anchors.verticalCenter: parent.verticalCenter
        text: header.viewModel.phase.headline
        role: "captionMedium"
        textScale: 1
        color: Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        maximumLineCount: 2
    }
    IconButton {
        x: 208
        objectName: "statistics"
        symbol: "chart.bar.fill"
        textScale: 1
        text: Texts.text("menubar.open_stats")
        help: Texts.text("menubar.header.stats")
        onClicked: header.viewModel.openStatistics()
    }
    IconButton {
        x: 240
        objectName: "settings"
        symbol: "gearshape.fill"
        textScale: 1
        text: Texts.text("menubar.open_settings")
        help: Texts.text("menubar.header.settings")
        onClicked: header.viewModel.openSettings()
    }
}
