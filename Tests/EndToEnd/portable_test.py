#!/usr/bin/python3
"""The programs that every system can build, on a display with a window manager and without a bus: a session, and what they
are made of."""

import os
import subprocess
import unittest

from desktop_test import Desktop
from tomcatto_process import PROGRAM, ROOT

PILL_HEIGHT = 32
SCREEN = {"X": 0, "Y": 0, "WIDTH": 1280, "HEIGHT": 900}


class Session(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)
        self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"

    def geometry(self, window):
        lines = self.desktop.tool("getwindowgeometry", "--shell", window)
        return {name: int(value) for name, value in (line.split("=") for line in lines) if name in SCREEN}

    def has_pill(self):
        return PILL_HEIGHT in [self.geometry(window).get("HEIGHT") for window in self.desktop.windows("Tomcatto")]

    def test_a_session_from_the_welcome_to_the_end(self):
        desktop = self.desktop
        desktop.start()
        desktop.wait_for(lambda: desktop.is_focused("Welcome to Tomcatto"))
        self.assertEqual(desktop.end(), 0, desktop.output())

        desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "1000")
        desktop.wait_for(self.has_pill)
        tray = subprocess.Popen(["trayer"], env=desktop.environment, stderr=subprocess.DEVNULL)
        desktop.helpers.insert(0, tray)
        desktop.wait_for(lambda: not self.has_pill())
        self.assertEqual(desktop.run("panel").returncode, 0)
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.run("window", "permissions").returncode, 0)
        desktop.run("start")
        desktop.run("skip")
        desktop.wait_for(lambda: desktop.is_focused("Short break"))
        desktop.wait_for(lambda: [self.geometry(window) for window in desktop.windows("Short break")] == [SCREEN])
        desktop.press("Escape")
        desktop.wait_for(lambda: desktop.status()["phase"] == "work")
        refused = desktop.run("settings", "set", "launchAtLogin", "true")
        self.assertIn("cannot ask the system", refused.stderr)
        self.assertEqual(desktop.run("settings", "get", "launchAtLogin").stdout, "false\n")
        unheard = desktop.run("shortcuts", "set", "skip", "control+alt+s")
        self.assertEqual((unheard.returncode, "does not offer shortcuts" in unheard.stderr), (1, True), unheard.stderr)
        self.assertEqual(desktop.end(), 0, desktop.output())
        self.assertEqual([row[0] for row in desktop.records()], ["work", "shortBreak", "work"])
        self.assertNotIn("TypeError", desktop.output())

    def test_a_message_of_the_tray(self):
        desktop = self.desktop
        desktop.helpers.insert(0, subprocess.Popen(["trayer"], env=desktop.environment, stderr=subprocess.DEVNULL))
        desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "1", "-autoStartBreaks", "false")
        windows = lambda: set(desktop.tool("search", "--onlyvisible", "--class", "tomcatto"))  # noqa: E731
        desktop.wait_for(lambda: windows() and not self.has_pill())
        others = windows()
        desktop.run("start")
        desktop.wait_for(lambda: windows() - others)
        message = (windows() - others).pop()
        desktop.tool("mousemove", "--window", message, "40", "40", "click", "1")
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.end(), 0, desktop.output())


class Making(unittest.TestCase):
    def test_what_every_system_has(self):
        folder = os.path.dirname(PROGRAM)
        files = [os.path.join(folder, name) for name in
                 ("tomcatto", "tomcatto-desktop", "tomcatto-dialogs", "tomcatto-fetch", "tomcatto-film", "tomcatto-sound", "tomcatto-views", "tomcatto-media.so")]
        check = [os.path.join(ROOT, "Tools", "check-portable"), os.path.dirname(folder)]
        looked = subprocess.run(check + files, capture_output=True, text=True, check=False)
        self.assertEqual((looked.returncode, looked.stderr), (0, ""))
        others = [os.path.join(folder, "..", name) for name in ("tomcatto", "tomcatto-desktop")]
        found = subprocess.run(check + others, capture_output=True, text=True, check=False).stderr
        for stranger in ("tomcatto: links libQt6DBus", "tomcatto-desktop: links libxcb", "sys/timerfd.h",
                         "Platform/Linux/BirthTime.cpp: says statx"):
            self.assertIn(stranger, found, "what belongs to one system is noticed")


if __name__ == "__main__":
    unittest.main()
