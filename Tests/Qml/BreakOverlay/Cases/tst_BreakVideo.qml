import QtQuick
import QtTest
import Tomcatto.Appearance
import Tomcatto.BreakOverlay
import Tomcatto.Tests

TestCase {
    id: test

    name: "BreakVideo"
    when: windowShown
    width: 320
    height: 180
    visible: true

    Component {
        id: backgrounds

        BreakBackground {
            anchors.fill: parent
            unit: 1
            isMuted: false
            // A pale still, as the film has no such colour.
            posterUrl: "data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' width='64' height='36'><rect width='64' height='36' fill='white'/></svg>"
        }
    }

    Component {
        id: playersBelow

        // Under words and glass, as in a break.
        Item {
            VideoPlayerView {
                anchors.fill: parent
                videoUrl: Film.moving
                isMuted: false
                isStill: Theme.reducedMotion
            }
            Scrim {
                anchors.fill: parent
                anchors.topMargin: 31
                color: "#302010"
                shares: [0, 0.2, 1, 0.6]
            }
            Text {
                anchors.centerIn: parent
                text: "25:00"
                color: "white"
            }
        }
    }

    Component {
        id: scrims

        Rectangle {
            anchors.fill: parent
            color: "#C88040"

            Scrim {
                y: 20
                width: 161
                height: 100
                color: "#080080"
                shares: [0, 0, 0.5, 0.5, 1, 1]
                opacity: 0.5
            }
        }
    }

    function cleanup() {
        AppearanceSettings.reducedMotion = false
    }

    function colour(item: Item): string {
        const pixel = grabImage(item).pixel(160, 90)
        const parts = [pixel.r, pixel.g, pixel.b].map(part => part > 0.5)
        return ({"true,false,false": "red", "false,true,false": "lime", "false,false,true": "blue", "true,true,true": "still"})[parts] ?? "ground"
    }
    function waitFor(item: Item, wanted: string, without: var) {
        for (let tries = 0; tries < 3000; ++tries) {
            const seen = colour(item)
            if (seen === wanted)
                return
            verify(!without.includes(seen), `${seen} came before ${wanted}`)
            wait(10)
        }
        fail(`${wanted} did not come`)
    }

    function test_playsFromItsStillOnAndGoesRound() {
        const view = createTemporaryObject(backgrounds, test, {"videoUrl": ""})
        waitFor(view, "still", ["red", "lime", "blue"])
        view.videoUrl = Film.file
        waitFor(view, "red", ["ground", "lime", "blue"])
        // It does not begin again when it is muted in the middle.
        waitFor(view, "lime", ["ground", "still", "blue"])
        view.isMuted = true
        waitFor(view, "blue", ["ground", "still", "red"])
        view.isMuted = false
        for (const next of ["red", "lime", "blue", "red"])
            waitFor(view, next, ["ground", "still"])
    }

    function test_leavesNothingOfTheFramesBeforeBehind_data() {
        // As large as the film but beyond the window's edge, and scaled.
        return [[320, 180, -21], [250, 150, 0]].map(([width, height, y]) => ({tag: `${width} x ${height}`, width, height, y}))
    }
    function test_leavesNothingOfTheFramesBeforeBehind(data: var) {
        const view = createTemporaryObject(playersBelow, test, {"width": data.width, "height": data.height, "y": data.y})
        let painted = grabImage(test)
        let frames = 0
        for (let tries = 0; frames < 20 && tries < 400; ++tries) {
            wait(10)
            const next = grabImage(test)
            frames += next.equals(painted) ? 0 : 1
            painted = next
        }
        compare(frames, 20)
        AppearanceSettings.reducedMotion = true
        // It stands still once the frame that was on its way is painted.
        wait(300)
        painted = grabImage(test)
        // All of it is painted at once.
        view.visible = false
        waitForRendering(test)
        view.visible = true
        waitForRendering(test)
        verify(painted.equals(grabImage(test)))
    }

    function test_darkensByTheShareOfEachRow_data() {
        return [[0, 19, 0], [0, 45, 0.1275], [160, 70, 0.2525], [0, 95, 0.3775], [161, 95, 0], [0, 120, 0]].map(
                    ([x, y, share]) => ({tag: `${x}, ${y}`, x, y, share}))
    }
    function test_darkensByTheShareOfEachRow(data: var) {
        const picture = grabImage(createTemporaryObject(scrims, test))
        for (const [part, below, above] of [["red", 0xC8, 0x08], ["green", 0x80, 0], ["blue", 0x40, 0x80]])
            fuzzyCompare(picture[part](data.x, data.y), below + data.share * (above - below), 1.5)
    }

    function test_keepsStillWithReducedMotion() {
        AppearanceSettings.reducedMotion = true
        const view = createTemporaryObject(backgrounds, test, {"videoUrl": Film.file})
        waitFor(view, "red", ["lime", "blue"])
        wait(1500)
        compare(colour(view), "red")
        // It is wanted to move after all.
        AppearanceSettings.reducedMotion = false
        waitFor(view, "lime", ["ground", "still", "blue"])
    }
}
