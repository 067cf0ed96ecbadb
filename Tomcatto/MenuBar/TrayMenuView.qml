import QtQuick
import QtQuick.Window
import Tomcatto.Appearance
import Tomcatto.MenuBar

/// The window of the status item's menu. It tells its size, and is then placed and shown.
Window {
    id: root

    required property TrayMenuViewModel viewModel
    readonly property int radius: 14
    readonly property size wanted: Qt.size(body.implicitWidth, body.implicitHeight)
    /// Whether translucent parts show what lies behind. Where they do not, the corners are cut from the window, and what
    /// their smooth edges leave out would be black.
    property bool isComposited: true

    title: Texts.text("app.name")
    color: isComposited ? "transparent" : Theme.line
    width: wanted.width
    height: wanted.height
    onWantedChanged: viewModel.fit(wanted.width, wanted.height)
    Component.onCompleted: viewModel.fit(wanted.width, wanted.height)

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.card
        border.color: Theme.line
    }
    TrayMenuBody {
        id: body

        anchors.fill: parent
        viewModel: root.viewModel
    }
}
