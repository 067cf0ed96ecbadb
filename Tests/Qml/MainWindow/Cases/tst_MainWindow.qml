import QtQuick
import QtTest
import Tomcatto.MainWindow

TestCase {
    id: test

    property var window: null

    name: "MainWindow"
    when: windowShown

    Component {
        id: maker

        MainWindow {
            viewModel: world.window
        }
    }

    function initTestCase() {
        window = maker.createObject(null)
        window.show()
        window.requestActivate()
        tryCompare(window, "active", true)
    }

    function cleanupTestCase() {
        window.destroy()
    }

    /// Every item below `item` for which `fits` holds.
    function all(item, fits) {
        let found = fits(item) ? [item] : []
        for (let index = 0; index < item.children.length; ++index)
            found = found.concat(all(item.children[index], fits))
        return found
    }

    function one(fits) {
        const found = all(window.contentItem, item => item.visible && fits(item))
        compare(found.length, 1)
        return found[0]
    }

    function row(title) {
        return one(item => item.title === title && item.switchable === true)
    }

    function show(page) {
        world.window.showPage(page)
        tryVerify(() => all(window.contentItem, item => item.columnWidth > 0).length === 1)
        waitForRendering(window.contentItem)
    }

    function press(item, key) {
        item.forceActiveFocus(Qt.TabFocusReason)
        verify(item.activeFocus)
        keyClick(key)
    }

    function test_arrowsInTheSidebarChooseThePage() {
        show("timer")
        const first = one(item => item.symbol === "timer" && item.selected === true)
        press(first, Qt.Key_Down)
        compare(world.window.page, "general")
        keyClick(Qt.Key_End)
        compare(world.window.page, "about")
        keyClick(Qt.Key_Down)
        compare(world.window.page, "about")
        keyClick(Qt.Key_Home)
        compare(world.window.page, "timer")
    }

    function test_durationFollowsSliderAndStepperAndSettings() {
        show("timer")
        const slider = () => one(item => item.minimumValue === 1 && item.thumbX !== undefined && item.name === "Focus")
        const stepper = () => one(item => item.typed !== undefined && item.name === "Focus")
        world.setWorkSeconds(5)
        compare(stepper().text, "5 s")
        press(stepper(), Qt.Key_Tab)
        compare(world.stored("workDurationSeconds"), 5)

        press(slider(), Qt.Key_Right)
        compare(world.stored("workDurationSeconds"), 120)
        press(slider(), Qt.Key_PageUp)
        compare(world.stored("workDurationSeconds"), 420)
        compare(stepper().text, "7 min")
        press(stepper(), Qt.Key_End)
        compare(world.stored("workDurationSeconds"), 10800)
        world.setWorkSeconds(1500)
        compare(slider().value, 25)
        compare(stepper().value, 25)
    }

    function test_presetsAreChosenByMouseAndKeyboard() {
        show("timer")
        const tile = title => one(item => item.title === title && item.durations !== undefined)
        mouseClick(tile("Flow"))
        compare(world.stored("workDurationSeconds"), 2700)
        verify(tile("Flow").selected)
        press(tile("Flow"), Qt.Key_Right)
        verify(tile("Deep").activeFocus)
        keyClick(Qt.Key_Space)
        compare(world.stored("workDurationSeconds"), 3000)
        press(tile("Classic"), Qt.Key_Return)
        compare(world.stored("longBreakDurationSeconds"), 900)
    }

    function test_roundsKeepFollowingTheSettingAfterAStep() {
        show("timer")
        const stepper = one(item => item.typed !== undefined && item.name === "Rounds before a long break")
        press(stepper, Qt.Key_Up)
        compare(world.stored("cyclesBeforeLongBreak"), 5)
        world.setRounds(9)
        compare(stepper.value, 9)
        world.setRounds(4)
    }

    function test_switchesAndChoicesActAtOnce() {
        show("general")
        press(row("Sounds"), Qt.Key_Space)
        compare(world.stored("soundEnabled"), false)
        world.setSound(true)
        verify(row("Sounds").checked)

        const themes = one(item => item.name === "Theme" && item.texts !== undefined)
        press(themes, Qt.Key_Right)
        compare(world.stored("themePreference"), "light")
        world.setTheme(2)
        compare(themes.currentIndex, 2)
    }

    function test_goodMannersAreChosenAndWhatNothingTellsCanOnlyBeTurnedOff() {
        show("general")
        verify(world.isWatching())
        const away = row("Pause when away")
        const after = () => all(window.contentItem, item => item.visible && item.name === "Pause when away, After")
        const height = away.parent.height
        compare(after().length, 0)
        press(away, Qt.Key_Space)
        compare(world.stored("pausesWhenAway"), true)
        compare(away.parent.height, height + 42)
        press(after()[0], Qt.Key_Right)
        compare(world.stored("awayAfterMinutes"), 10)
        keyClick(Qt.Key_Right)
        compare(world.stored("awayAfterMinutes"), 0)

        press(row("Wait during calls"), Qt.Key_Space)
        world.tell(false)
        verify(away.enabled, "the lock is told")
        verify(!row("Finish the sentence").enabled)
        const calls = row("Wait during calls")
        compare(calls.help, "No sound system here tells about calls.")
        press(calls, Qt.Key_Space)
        compare(world.stored("waitsDuringCalls"), false)
        verify(!calls.enabled)
        verify(row("Wait in full screen").activeFocus, "the keyboard goes on")
        world.tell(true)
        verify(calls.enabled)
        press(away, Qt.Key_Space)
        compare(after().length, 0)
        show("about")
        verify(!world.isWatching())
    }

    function test_returnOpensTheLanguagesAndTakesOne() {
        show("general")
        const languages = one(item => item.name === "Language" && item.popup !== undefined)
        press(languages, Qt.Key_Return)
        tryCompare(languages.popup, "opened", true)
        keyClick(Qt.Key_Up)
        compare(world.stored("selectedLanguage"), "en", "nothing is chosen yet")
        keyClick(Qt.Key_Return)
        tryCompare(languages.popup, "visible", false)
        compare(world.stored("selectedLanguage"), "system")
        world.speakGerman()
        compare(languages.name, "Sprache", "what is shown follows")
        world.speakEnglish()
        compare(languages.name, "Language")
    }

    function test_keyboardFollowsThePageAndScrollsIt() {
        show("timer")
        press(one(item => item.symbol === "timer" && item.selected === true), Qt.Key_Home)
        window.height = window.minimumHeight
        show("general")
        verify(window.activeFocusItem.selected)
        compare(window.activeFocusItem.symbol, "sliders")
        const page = one(item => item.columnWidth > 0)
        tryVerify(() => page.flickable.contentHeight > page.flickable.height)
        keyClick(Qt.Key_PageDown)
        const scrolled = page.flickable.contentY
        verify(scrolled > 0)
        keyClick(Qt.Key_Tab)
        verify(page.flickable.contentY < scrolled, "what has the keyboard is shown")
        window.height = 820
    }

    function test_refusedLaunchAtLoginSwitchesBack() {
        show("general")
        world.failLaunchAtLogin()
        mouseClick(row("Open at login"))
        compare(world.alerts(), 1)
        verify(!row("Open at login").checked)
    }

    function test_shortcutsAreRecordedByKeyboard() {
        const control = 0x40000, option = 0x80000, command = 0x100000
        const field = () => one(item => item.recordText !== undefined && item.title === "Skip this phase")
        const button = text => all(field(), item => item.visible && item.text === text && item.clicked !== undefined)[0]
        show("general")
        press(button("Record"), Qt.Key_Space)
        verify(field().recording && world.isSuspended())
        world.pressKey(49, command)
        compare(field().notice, "Taken by Spotlight. Try another combination.")
        verify(world.pressKey(35, control | option))
        compare(field().keys, ["⌃", "⌥", "P"])
        verify(!field().recording && field().notice === "" && !world.isSuspended())
        verify(button("Change").activeFocus, "where the keyboard was")
        compare(JSON.parse(world.stored("globalShortcuts")), { skip: { keyCode: 35, modifierFlags: control | option } })
        mouseClick(button("Change"))
        world.window.showPage("about")
        verify(!world.isSuspended(), "nobody sees what is recorded")
        show("general")
        press(button("Clear shortcut"), Qt.Key_Return)
        compare(field().keys, [])
        verify(button("Record").activeFocus, "there is nothing left to clear")

        world.offerHotKeys(false)
        compare(all(window.contentItem, item => item.recordText !== undefined).length, 0)
        one(item => item.text === "tomcatto skip" && item.implicitHeight === 26)
        world.offerHotKeys(true)
    }

    function test_everyControlIsNamed_data() {
        return [{ tag: "timer", stops: 15 }, { tag: "general", stops: 16 }, { tag: "permissions", stops: 2 },
                { tag: "about", stops: 9 }]
    }

    function test_everyControlIsNamed(data) {
        show(data.tag)
        const stops = all(window.contentItem, item => item.visible && item.enabled && item.activeFocusOnTab)
        verify(stops.length >= data.stops, stops.length)
        for (const stop of stops)
            verify((stop.name || stop.text || stop.title || "").length > 0, stop)
    }
}
