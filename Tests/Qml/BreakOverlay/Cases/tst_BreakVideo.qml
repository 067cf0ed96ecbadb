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

    function cleanup() {
        AppearanceSettings.reducedMotion = false
    }

    function colour(item: Item): string {
        const pixel = grabImage(item).pixel(160, 90)
        const parts = [pixel.r, pixel.g, pixel.b].map(part => part > 0.5)
        return ({"true,false,false": "red", "false,true,false": "lime", "false,false,true": "blue", "true,true,true": "still"})[parts] ?? "ground"
    }
    function waitFor(item: Item, wanted: string, without: var) {
        for (let tries = 0; tries < 400; ++tries) {
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
