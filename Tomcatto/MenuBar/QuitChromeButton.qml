import QtQuick
import Tomcatto.Appearance

/// Ends the application.
IconButton {
    required property var strings
    required property var viewModel

    objectName: "quit"
    symbol: "power"
    text: strings.revision, strings.text("menubar.quit_app")
    help: strings.revision, strings.text("menubar.header.quit")
    onClicked: viewModel.quit()
}
