pragma ComponentBehavior: Bound

import QtQuick
import Tomcatto.Appearance
import Tomcatto.MainWindow

/// Name, version and what it is made with.
ScrollPage {
    id: page

    required property AboutPageViewModel viewModel
    property bool showsNews: false

    Accessible.name: Texts.text("window.page.about")

    Column {
        width: page.columnWidth
        spacing: 4

        Logo {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 128
            variant: Logo.Plate
        }
        Item {
            width: 1
            height: 8
        }
        ThemedText {
            width: parent.width
            text: Texts.text("app.name")
            role: "pageTitle"
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        ThemedText {
            width: parent.width
            text: page.viewModel.version
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
        }
        ThemedText {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, Math.round(360 * Theme.textScale))
            topPadding: 8
            text: Texts.text("window.about.sentence")
            lineHeight: Math.round(22 * Theme.textScale)
            horizontalAlignment: Text.AlignHCenter
        }
        Item {
            width: 1
            height: 8
        }
        Flow {
            id: buttons

            readonly property real natural: news.width + copy.width + spacing

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, natural)
            spacing: 8

            PushButton {
                id: news

                width: Math.min(implicitWidth, page.columnWidth)
                text: Texts.text("window.about.whats_new")
                visible: page.viewModel.whatsNew.length > 0
                Accessible.checkable: true
                Accessible.checked: page.showsNews
                onClicked: page.showsNews = !page.showsNews
            }
            PushButton {
                id: copy

                width: Math.min(implicitWidth, page.columnWidth)
                symbol: page.viewModel.isCopied ? "checkmark" : ""
                text: Texts.text(page.viewModel.isCopied ? "window.about.copied" : "window.about.copy_details")
                onClicked: page.viewModel.copyDetails()
            }
        }
        Item {
            width: 1
            height: 12
            visible: page.showsNews
        }
        Card {
            width: parent.width
            visible: page.showsNews
            padding: Theme.cardPadding

            ThemedText {
                width: parent.width
                text: page.viewModel.whatsNew
                textFormat: Text.MarkdownText
                lineHeightMode: Text.ProportionalHeight
                lineHeight: 1.15
            }
        }
    }

    SectionHeading {
        above: 28
        text: Texts.text("window.about.made_with")
    }
    Card {
        width: page.columnWidth

        Repeater {
            model: page.viewModel.components.length

            ListRow {
                required property int index
                readonly property var component: page.viewModel.components[index] ?? ({})

                title: component.title ?? ""
                value: component.license ?? ""
                navigates: true
                Accessible.name: component.name ?? ""
                onClicked: page.viewModel.openLicense(index)
            }
        }
    }
}
