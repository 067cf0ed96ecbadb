import QtQuick
import Tomcatto.Appearance

Window {
    required property var strings
    readonly property string shownText: strings
    readonly property bool isDark: Theme.dark

    width: 100
    height: 100
    color: Theme.paper
}
