import QtQuick
import QtTest
import Tomcatto.BreakOverlay

TestCase {
    id: test

    name: "BreakOverlay"
    when: windowShown
    width: 1920
    height: 1080
    visible: true

    QtObject {
        id: model

        property string phase: "shortBreak"
        property string title: "Short break"
        property string subtitle: "Look far away."
        property string time: "03:18"
        property string spokenTime: "Break, 3 minutes 18 seconds left"
        property real progress: 0.5
        property bool canStart: false
        property bool canExtend: true
        property bool soundEnabled: true
        property bool isMuted: false
        property url videoUrl
        property url posterUrl
        property var calls: []

        function bodyAppeared() { calls = calls.concat("appeared") }
        function start() { calls = calls.concat("start") }
        function extend() { calls = calls.concat("extend") }
        function toggleMute() { calls = calls.concat("mute") }
        function videoFailed(reason: string) { calls = calls.concat("failed") }
        function soundMissing() { calls = calls.concat("soundless") }
    }
    Timer {
        id: latest

        interval: 5300
    }
    Component {
        id: contents

        BreakOverlayContent {
            anchors.fill: parent
            viewModel: model
            isShown: true
        }
    }
    Component {
        id: films

        VideoPlayerView {
            anchors.fill: parent
            isMuted: true
        }
    }
    Component {
        id: overlays

        BreakOverlayView {
            viewModel: model
            width: 800
            height: 600
        }
    }

    function init() {
        test.Window.window.requestActivate()
        tryVerify(() => test.Window.window.active)
        model.canStart = false
        model.canExtend = true
        model.isMuted = false
        model.videoUrl = ""
        model.calls = []
    }

    function test_controls_data() {
        return [
            {tag: "running", canStart: false, shown: ["break.extend.button", "break.mute.button", "break.progress"], hidden: ["break.start.button"]},
            {tag: "waiting", canStart: true, shown: ["break.start.button", "break.mute.button"], hidden: ["break.extend.button", "break.progress"]}
        ]
    }
    function test_controls(data) {
        model.canStart = data.canStart
        model.canExtend = !data.canStart
        const content = createTemporaryObject(contents, test)
        for (const name of data.shown.concat("break.skip.hint")) {
            const item = findChild(content, name)
            verify(item.visible, name)
            verify(item.Accessible.name.length > 0, name)
        }
        for (const name of data.hidden)
            verify(!findChild(content, name).visible, name)
        verify(findChild(content, "break.countdown.chip").visible)
        compare(findChild(content, "break.countdown.spoken").name, model.spokenTime)
        for (const [name, call] of [["break.start.button", "start"], ["break.extend.button", "extend"], ["break.mute.button", "mute"]]) {
            const button = findChild(content, name)
            if (!button.visible)
                continue
            verify(button.width >= 44 && button.height >= 44, name)
            model.calls = []
            mouseClick(button)
            compare(model.calls, [call])
        }
        const mute = findChild(content, "break.mute.button")
        compare([mute.symbol, mute.text], ["speaker.wave.2.fill", "Turn the sound off"])
        model.isMuted = true
        compare([mute.symbol, mute.text], ["speaker.slash.fill", "Turn the sound on"])
    }

    function test_hintLeavesAfterFiveSeconds() {
        const content = createTemporaryObject(contents, test)
        const hint = findChild(content, "break.skip.hint")
        const began = Date.now()
        let left = 0
        const shades = []
        content.skipHintVisibleChanged.connect(() => left = Date.now())
        hint.parent.opacityChanged.connect(() => shades.push(hint.parent.opacity))
        latest.start()
        tryVerify(() => !latest.running, 30000)
        verify(!content.skipHintVisible, "it leaves in time")
        verify(left - began > 4900, left - began)
        tryVerify(() => !hint.visible, 30000)
        verify(shades.some(shade => shade > 0 && shade < 1), "it fades and does not vanish")
    }

    function test_typedWordsPressNothingAtFirst() {
        model.canStart = true
        const content = createTemporaryObject(contents, test)
        const button = findChild(content, "break.start.button")
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Return)
        mouseMove(button)
        verify(!button.activeFocus)
        compare(model.calls, [])
        tryVerify(() => !content.isGuarded, 1000)
        keyClick(Qt.Key_Tab)
        tryVerify(() => button.activeFocus)
        keyClick(Qt.Key_Return)
        compare(model.calls, ["start"])
    }

    function test_everythingFits_data() {
        // Where there is room for it, nothing above 0.78 of the video's height is under the countdown.
        return [
            {tag: "small", size: [1280, 720], showsPaws: true}, {tag: "narrow", size: [640, 900], showsPaws: false},
            {tag: "wide", size: [2560, 1080], showsPaws: true}, {tag: "wider", size: [5120, 1440], showsPaws: false},
            {tag: "tall", size: [2160, 3840], showsPaws: true}
        ]
    }
    function test_everythingFits(data) {
        const content = createTemporaryObject(contents, test, {"anchors.fill": undefined})
        content.width = data.size[0]
        content.height = data.size[1]
        const area = Qt.rect(0, 0, content.width, content.height)
        const boxes = ["break.countdown.chip", "break.extend.button", "break.mute.button"].map(name => {
            const item = findChild(content, name)
            return item.mapToItem(content, 0, 0, item.width, item.height)
        })
        for (const box of boxes)
            verify(box.left >= area.left && box.right <= area.right && box.bottom <= area.bottom, String(box))
        verify(boxes[0].right <= boxes[1].left || boxes[0].bottom <= boxes[1].top, "the bar covers the countdown")
        const picture = findChild(content, "break.picture")
        verify(picture.y <= 0 && picture.y + picture.height >= content.height && picture.width === content.width)
        verify(!data.showsPaws || picture.y + picture.height * 0.78 <= boxes[0].top, "it covers the paws")
    }

    function test_filmsPlayAndEnd() {
        const clip = Qt.resolvedUrl("../../../../Resources/BundledVideos/2-the-fish.mp4")
        // Ended before it began, while it begins, and while it plays.
        films.createObject(test, {"videoUrl": clip}).destroy()
        const beginning = films.createObject(test, {"videoUrl": clip})
        const film = createTemporaryObject(films, test, {"videoUrl": clip})
        wait(0)
        beginning.destroy()
        // What plays it may have to be loaded first.
        tryVerify(() => film.hasFrame, 30000)
        const first = grabImage(film)
        tryVerify(() => !grabImage(film).equals(first))
    }

    function test_countdownDoesNotWaitForTheVideo() {
        const overlay = createTemporaryObject(overlays, null)
        compare(model.calls, [])
        overlay.visible = true
        tryVerify(() => model.calls.includes("appeared"))
        model.videoUrl = "file:///nowhere/at-all.mp4"
        tryVerify(() => model.calls.includes("failed"), 30000)
        const chip = findChild(overlay, "break.countdown.chip")
        verify(chip.visible)
        // Once: the other process, which is told, would wake with each frame.
        for (const time of ["03:17", "03:16"]) {
            model.time = time
            verify(waitForRendering(chip))
        }
        compare(model.calls.filter(call => call === "appeared").length, 1)
    }
}
