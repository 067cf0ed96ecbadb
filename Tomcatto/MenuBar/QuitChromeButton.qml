import QtQuick
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// Ends the application.
IconButton {
    required property MenubarPanelViewModel viewModel

    objectName: "quit"
    symbol: "power"
    textScale: 1
    text: Texts.text("menubar.quit_app")
    help: Texts.text("menubar.header.quit")
    onClicked: viewModel.quit()
}
