import QtQuick
import Tomcatto.Appearance

Window {
    required property string shownText
    readonly property bool isDark: Theme.dark

    width: 100
    height: 100
    color: Theme.paper
}
