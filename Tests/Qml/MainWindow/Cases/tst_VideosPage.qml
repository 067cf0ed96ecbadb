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
    QtObject {
        id: model

        property var own: videos
        property var included: []
        property string longestCaption: "Added 20 Sep, plays on breaks"
        property string error
        property string deletedText
        property var stills: []
        signal changed
        signal deletedChanged
        function appear() {}
        function disappear() {}
        function still(id: string, scale: real): string {
            stills.push(id)
            return ""
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
}
