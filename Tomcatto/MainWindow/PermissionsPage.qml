pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// What the system allows and what this desktop can do.
ScrollPage {
    id: page

    required property PermissionsPageViewModel viewModel

    title: Texts.text("window.page.permissions")
    subtitle: Texts.text("window.permissions.subtitle")
    spacing: 12

    Card {
        width: page.columnWidth

        Repeater {
            model: page.viewModel.rows.length

            ControlRow {
                id: line

                required property int index
                readonly property var permission: page.viewModel.rows[index] ?? ({})

                title: permission.title ?? ""
                help: permission.help ?? ""
                helpIsError: permission.isProblem ?? false

                Row {
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 6
                    Accessible.role: Accessible.StaticText
                    Accessible.name: line.permission.name ?? ""

                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: line.permission.isGood ?? false
                        name: "checkmark"
                        size: 16
                        color: Theme.longBreak.text
                    }
                    QuietText {
                        text: line.permission.state ?? ""
                        font: Theme.sizedFont(Math.round(13 * Theme.textScale), Font.Normal, 0)
                        color: line.permission.isGood ? Theme.longBreak.text : Theme.ink2
                        wrapMode: Text.NoWrap
                    }
                }
                PushButton {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: text.length > 0
                    width: Math.max(112, implicitWidth)
                    text: line.permission.button ?? ""
                    Accessible.description: line.title
                    onClicked: page.viewModel.act(line.permission.id)
                }
            }
        }
    }
    ThemedText {
        width: page.columnWidth
        leftPadding: 4
        text: Texts.text("window.permissions.footer")
        role: "caption"
        color: Theme.ink2
    }
}
