import QtQuick
import QtTest
import Tomcatto.MainWindow

TestCase {
    id: testCase

    name: "VideosPage"
    when: windowShown
    width: 720
    height: 800
    visible: true

    ListModel {
        id: videos
    }
    ListModel {
        id: remoteVideos
    }
    QtObject {
        id: remote

        property bool isEnabled: false
        property var videos: remoteVideos
        property bool isEmpty: false
        property bool isChecking: false
        property string checkedText: "Checked just now"
        property string problem
        property var calls: []
        signal stillCame(id: string, still: string)
        signal stillReady(id: string)
        function appear() {}
        function disappear() {}
        function askStill(id: string, scale: real) {
            calls.push("still " + id)
        }
        function refresh() { calls.push("refresh") }
        function press(id: string) { calls.push("press " + id) }
        function remove(id: string) { calls.push("remove " + id) }
    }
    QtObject {
        id: model

        property var library: remote
        property var own: videos
        property var included: []
        property string longestCaption: "Added 20 Sep, plays on breaks"
        property string error
        property string deletedText
        property var stills: []
        signal changed
        signal stillCame(id: string, still: string)
        signal deletedChanged
        function appear() {}
        function disappear() {}
        function askStill(id: string, scale: real) {
            stills.push(id)
        }
    }
    VideosPage {
        id: page

        anchors.fill: parent
        viewModel: model
    }

    function test_makesOnlyTheTilesThatAreSeen() {
        for (let number = 0; number < 500; ++number)
            videos.append({videoId: String(number), title: "", caption: "", status: "resting"})
        wait(0)
        compare(model.stills[0], "0")
        verify(model.stills.length < 60, `${model.stills.length} tiles are made at first`)
        model.stills = []
        keyClick(Qt.Key_Tab)
        for (let key = 0; key < 60; ++key)
            keyClick(Qt.Key_PageDown)
        tryVerify(() => model.stills.includes("499"))
    }

    function test_libraryByKeyboard() {
        const row = {videoId: "", title: "Tom", caption: "", hasFailed: false, status: "active", progress: 0,
                     progressText: "", chip: "", chipSymbol: ""}
        verify(!findText(page, "Checked just now").visible, "nothing of it without an address")
        remote.isEnabled = true
        for (let number = 0; number < 500; ++number)
            remoteVideos.append(Object.assign({}, row, {videoId: String(number)}))
        remote.problem = "No answer"
        tryVerify(() => findText(page, "Checked just now").visible)
        compare(remote.calls[0], "still 0")
        verify(remote.calls.length < 60, `${remote.calls.length} tiles are made at first`)
        remote.calls = []
        // "Preview a break", "Add a video", the refresh button, "Try again", the first tile.
        for (const call of ["", "", "refresh", "refresh", "press 0"]) {
            keyClick(Qt.Key_Tab)
            if (call.length > 0)
                keyClick(Qt.Key_Space)
        }
        keyClick(Qt.Key_Delete)
        compare(remote.calls.filter(call => !call.startsWith("still")), ["refresh", "refresh", "press 0", "remove 0"])
        remote.isEnabled = false
    }

    function findText(item, text) {
        if (item.text === text)
            return item
        for (let number = 0; number < item.children.length; ++number) {
            const found = findText(item.children[number], text)
            if (found)
                return found
        }
        return null
    }
}
