#!/usr/bin/python3
"""Shortcuts from anywhere, on a real X server: pressed while another program's window has the keyboard."""

import subprocess
import time
import unittest

from desktop_test import Desktop

# Places of keys, whatever the layout has there.
Q, E, SPACE = "24", "26", "65"


class Shortcuts(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)
        # Somebody else's window, which tells the keys that it gets.
        self.other = subprocess.Popen(["stdbuf", "-oL", "xev", "-event", "keyboard"], env=self.desktop.outside, text=True,
                                      stdout=subprocess.PIPE)
        self.desktop.wait_for(self.gives_other_the_keyboard)

    def gives_other_the_keyboard(self):
        self.desktop.tool("search", "--name", "Event Tester", "windowactivate")
        return self.desktop.is_focused("Event Tester")

    def others_keys(self):
        self.other.terminate()
        return self.other.communicate(timeout=60)[0].lower()

    def start(self):
        self.desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "1000")

    def expect(self, status, *arguments):
        result = self.desktop.run("shortcuts", *arguments)
        self.assertEqual(result.returncode, status, result.stderr)
        return result.stdout

    def expect_press(self, key, condition):
        self.desktop.tool("key", "ctrl+alt+" + key)
        self.desktop.wait_for(lambda: condition(self.desktop.status()))

    def planned(self):
        return self.desktop.status()["plannedSeconds"]

    def wait_for_line(self, line):
        self.desktop.wait_for(lambda: line in self.expect(0, "list").splitlines())

    def expect_one_extension(self):
        before = self.planned()
        self.expect_press(Q, lambda status: status["plannedSeconds"] == before + 300)

    def test_actions_from_another_window(self):
        desktop = self.desktop
        for action, keys in (("toggleTimer", "control+alt+space"), ("skip", "⌃⌥E"), ("extend", "control+option+q")):
            self.expect(0, "set", action, keys)
        self.start()
        self.assertEqual(self.expect(0, "list").splitlines()[1:], ["skip\tcontrol+alt+e\t⌃⌥E", "extend\tcontrol+alt+q\t⌃⌥Q"])
        self.expect_press(SPACE, lambda status: status["phase"] == "work")
        self.expect_press(SPACE, lambda status: status["isPaused"])
        self.expect_press(SPACE, lambda status: not status["isPaused"])

        for lock in ("Caps_Lock", "Num_Lock"):
            desktop.tool("key", lock)
            self.expect_one_extension()
        for layout in ("de", "fr", "tr", "us"):
            subprocess.run(["setxkbmap", layout], env=desktop.outside, check=True)
            self.expect_one_extension()
        subprocess.run(["xmodmap", "-e", "clear mod4", "-e", "clear mod1", "-e", "add mod3 = Alt_L Alt_R"],
                       env=desktop.outside, check=True)
        self.expect_one_extension()
        subprocess.run(["setxkbmap", "us"], env=desktop.outside, check=True)
        self.expect_one_extension()
        # As when a terminal's Return gives the command.
        desktop.tool("keydown", "Return")
        self.expect(0, "set", "skip", "control+alt+return")
        desktop.tool("keyup", "Return", "key", "ctrl+alt+Return")
        desktop.wait_for(lambda: desktop.status()["phase"] == "shortBreak")
        self.expect_press("Return", lambda status: status["phase"] == "work")
        before = self.planned()
        subprocess.run(["xset", "r", "on"], env=desktop.outside, check=True)
        desktop.tool("keydown", "ctrl", "keydown", "alt", "keydown", Q)
        # The server begins to repeat it after less than a second.
        time.sleep(1.5)
        desktop.tool("keyup", Q, "keyup", "alt", "keyup", "ctrl")
        subprocess.run(["xset", "r", "off"], env=desktop.outside, check=True)
        self.assertEqual(self.planned(), before + 300, "a held key acts once")
        self.expect_one_extension()

        self.assertIn("unavailable", self.expect(1, "set", "skip", "control+alt+space") or self.expect(0, "list"))
        self.expect_press(SPACE, lambda status: status["isPaused"])
        desktop.tool("key", "ctrl+alt+x")
        self.expect(0, "clear", "toggleTimer")
        self.expect_press(SPACE, lambda status: status["phase"] == "shortBreak")
        # The window manager changes workspaces with these.
        self.expect(1, "set", "skip", "control+alt+left")
        desktop.helpers[0].terminate()
        desktop.helpers[0].wait()
        # It leaves nobody with the keyboard.
        desktop.tool("search", "--name", "Event Tester", "windowfocus", "--sync")
        self.expect(0, "set", "skip", "control+alt+left")
        self.expect_press("Left", lambda status: status["phase"] == "work")
        self.assertEqual(desktop.run("quit").returncode, 0)
        desktop.process.wait(timeout=60)
        self.start()
        self.assertEqual(desktop.run("start").returncode, 0)
        self.expect_press("Left", lambda status: status["phase"] == "shortBreak")
        self.assertEqual(desktop.end(), 0, desktop.output())
        keys = self.others_keys()
        self.assertEqual((keys.count(", q)"), keys.count(", x)")), (0, 2), "a shortcut's key reaches no window")

    def test_recording_on_the_page(self):
        desktop = self.desktop
        self.expect(0, "set", "toggleTimer", "control+alt+space")
        self.start()
        self.assertEqual(desktop.run("window", "general").returncode, 0)
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        time.sleep(0.8)
        # Back from the first control to the last shortcut's button.
        desktop.press("shift+Tab", "shift+Tab", "space", "ctrl+alt+" + SPACE)
        self.wait_for_line("extend\tcontrol+alt+space\t⌃⌥Space\tunavailable")
        self.assertEqual(desktop.status()["phase"], "idle", "no shortcut acts while one is recorded")
        subprocess.run(["setxkbmap", "fr"], env=desktop.outside, check=True)
        desktop.press("space", "super+space", "ctrl+alt+" + Q)
        self.wait_for_line("extend\tcontrol+alt+q\t⌃⌥Q")
        desktop.press("space", "Escape")
        self.expect_press(SPACE, lambda status: status["phase"] == "work")
        self.expect_one_extension()
        desktop.press("space")
        # Down until it is held from anywhere; only the page's window hears of its release.
        desktop.tool("keydown", "ctrl", "keydown", "alt", "keydown", E)
        self.wait_for_line("extend\tcontrol+alt+e\t⌃⌥E")
        desktop.tool("keyup", E, "keyup", "alt", "keyup", "ctrl")
        time.sleep(0.2)
        before = self.planned()
        self.expect_press(E, lambda status: status["plannedSeconds"] == before + 300)
        self.assertEqual(desktop.end(), 0, desktop.output())
        self.assertNotIn("TypeError", desktop.output())


if __name__ == "__main__":
    unittest.main()
