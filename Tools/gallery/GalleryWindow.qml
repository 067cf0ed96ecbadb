import QtQuick
import Tomcatto.Appearance

/// A window page with rows, shortcuts, videos and what lies over them.
Rectangle {
    id: gallery

    width: 920
    height: 1004
    color: Theme.paper

    Rectangle {
        width: 208
        height: parent.height
        color: Theme.sunk

        Column {
            x: 12; y: 16
            width: 184
            spacing: 4
            SidebarRow { width: 184; text: "Timer"; symbol: "timer" }
            SidebarRow { width: 184; text: "General"; symbol: "sliders"; selected: true }
            SidebarRow { width: 184; text: "Videos"; symbol: "play.rectangle"; showHover: true }
            SidebarRow { width: 184; text: "Permissions"; symbol: "shield"; showFocus: true }
            SidebarRow { width: 40; text: "About"; symbol: "info"; compact: true }
        }
    }
    ScrollPage {
        x: 208
        width: parent.width - 208
        height: parent.height
        title: "General"
        subtitle: "How Tomcatto looks and speaks up."
        header: PushButton { text: "Preview a break"; symbol: "eye" }

        Card {
            width: parent.width
            ListRow {
                title: "Theme"
                Segmented { texts: ["System", "Light", "Dark"]; showFocus: true }
            }
            ListRow {
                title: "Language"
                PopUpButton { id: language; width: 176; model: ["System (English)", "Deutsch", "Français"] }
            }
            ListRow {
                title: "Short break"
                DurationSlider { width: 220; value: 5; phase: "shortBreak" }
                Item { width: 10; height: 1 }
                Stepper { value: 5; text: "5 min" }
            }
        }
        SectionHeading {
            text: "Shortcuts"
            ThemedText { text: "They work while another application is in front."; role: "caption"; color: Theme.ink2 }
        }
        Card {
            width: parent.width
            ShortcutField { title: "Start or pause"; keys: ["⌃", "⌥", "P"]; changeText: "Change"; clearText: "Clear" }
            ShortcutField {
                title: "Skip this phase"; recording: true
                pressText: "Press the new keys"; cancelText: "Esc to cancel"
                notice: "⌘ Space is taken by Spotlight. Try another combination."
            }
            ShortcutField { title: "Add five minutes"; notSetText: "Not set"; recordText: "Record" }
        }
        SectionHeading { text: "Your videos" }
        Grid {
            columns: 3
            spacing: 16
            VideoTile { title: "Rain on the sill"; caption: "0:16, plays on breaks"; status: "active"; showActions: true; previewText: "Preview"; deletable: true; thumbnail: gallery.still }
            VideoTile { title: "Moving day"; caption: "Added 3 Nov, resting"; thumbnail: gallery.still }
            AddTile { text: "Add a video"; hint: "or drop it here" }
            VideoTile { title: "Box and butterfly"; caption: "Downloading, 2.2 of 3.6 MB"; status: "downloading"; progress: 0.62; progressText: "62 %"; thumbnail: gallery.still }
            VideoTile { title: "The fish with a rather long name of a file.mp4"; caption: "0:10"; status: "missing"; sizeText: "3.1 MB"; thumbnail: gallery.still }
            VideoTile { title: "First snow"; caption: "0:16, plays on breaks"; status: "active"; showFocus: true; thumbnail: gallery.still }
        }
        Item { width: 1; height: 16 }
        UndoBar { width: parent.width; text: "Mio at the window was deleted."; open: true }
    }

    Timer {
        interval: 50; running: true
        onTriggered: language.popup.open()
    }

    readonly property url still: "qrc:/tomcatto/art/app-icon.svg"
}
