#!/usr/bin/python3
"""The desktop program on a real Wayland compositor with two screens, and its end where the display goes away."""

import os
import re
import shutil
import subprocess
import unittest

from desktop_test import Desktop
from tomcatto_process import PROGRAM


class WaylandDesktop(Desktop):
    """One user's session on Wayland. The compositor shows itself on an X server, whose keys it takes."""

    def __init__(self):
        super().__init__()
        self.compositor = subprocess.Popen(
            ["weston", "--backend=x11-backend.so", "--use-pixman", "--output-count=2", "--width=500", "--height=400",
             "--no-config", "--idle-time=0", "--socket=wl", "--log=" + os.path.join(self.folder, "weston")],
            env=self.outside, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.helpers.insert(0, self.compositor)
        for name in ("DISPLAY", "QT_QPA_PLATFORM"):
            del self.environment[name]
        # What the program says to the compositor is how its windows are seen from outside.
        self.environment.update(WAYLAND_DISPLAY="wl", WAYLAND_DEBUG="client")
        # The toolkit leaves objects of the compositor's behind; leaks are looked for where it does not.
        self.environment["ASAN_OPTIONS"] = self.environment.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        self.wait_for(lambda: os.path.exists(os.path.join(self.environment["XDG_RUNTIME_DIR"], "wl")))

    def press(self, *keys):
        self.tool("search", "--onlyvisible", "--class", "Weston Compositor", "windowfocus")
        super().press(*keys)

    def said(self, pattern):
        return re.findall(pattern, self.output())


class WaylandTest(unittest.TestCase):
    def setUp(self):
        for tool in ("Xvfb", "openbox", "weston", "xdotool", "dbus-daemon"):
            self.assertTrue(shutil.which(tool), f"{tool} is missing; run Tools/install-packages test")

    def desktop(self, kind):
        desktop = kind()
        self.addCleanup(desktop.close)
        return desktop

    def test_panel_and_break(self):
        desktop = self.desktop(WaylandDesktop)
        desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-autoStartBreaks", "true")
        keyboard = r"wl_keyboard[@#]\d+\.enter\("
        desktop.wait_for(lambda: desktop.said(keyboard))  # the small window that stands for the icon
        before = len(desktop.said(keyboard))
        self.assertEqual(desktop.run("panel").returncode, 0)
        desktop.wait_for(lambda: len(desktop.said(keyboard)) > before)
        desktop.wait_for(lambda: desktop.press("space") or desktop.status()["phase"] == "work")
        before = len(desktop.said(keyboard))
        self.assertEqual(desktop.run("skip").returncode, 0)
        covered = r"xdg_toplevel[@#]\d+\.set_fullscreen\(wl_output[@#](\d+)\)"
        desktop.wait_for(lambda: len(set(desktop.said(covered))) == 2)
        desktop.wait_for(lambda: len(desktop.said(keyboard)) > before)
        desktop.press("Escape")
        desktop.wait_for(lambda: desktop.status()["phase"] == "work")
        self.assertEqual(desktop.run("quit").returncode, 0)
        self.assertEqual(desktop.process.wait(timeout=60), 0, desktop.output()[-2000:])
        self.assertEqual([row[0] for row in desktop.records()], ["work", "shortBreak", "work"])
        self.assertNotIn("TypeError", desktop.output())

    def test_a_display_that_goes_away_ends_the_session(self):
        for kind, server in ((WaylandDesktop, "compositor"), (Desktop, "server")):
            with self.subTest(server=server):
                desktop = self.desktop(kind)
                desktop.start("-hasCompletedOnboarding", "true", "--ui-test")
                self.assertEqual(desktop.run("start").returncode, 0)
                getattr(desktop, server).kill()
                self.assertEqual(desktop.process.wait(timeout=60), 0, desktop.output())
                self.assertIn("the display is gone", desktop.output())
                self.assertEqual([row[0] for row in desktop.records()], ["work"])
                self.assertNotIn("inFlightSession", desktop.defaults())

    def test_a_display_that_lets_nobody_in_leaves_the_terminal(self):
        desktop = self.desktop(Desktop)
        desktop.environment.update(DISPLAY=":99999", QT_QPA_PLATFORM="")
        desktop.start(program=PROGRAM + "-desktop")
        self.assertIn("no display can be used", desktop.output())
        self.assertEqual(desktop.run("panel").returncode, 1)
        self.assertEqual(desktop.end(), 0)


if __name__ == "__main__":
    unittest.main()
