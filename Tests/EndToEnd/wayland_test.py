#!/usr/bin/python3
"""The desktop program on a real Wayland compositor with two screens, and its end where the display goes away."""

import json
import os
import re
import shutil
import subprocess
import unittest

from desktop_test import Desktop
from tomcatto_process import PROGRAM, Tomcatto


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


class SwayDesktop(Tomcatto):
    """A session on a compositor that tiles windows over its two screens, of which only pictures exist."""

    def __init__(self, scale):
        super().__init__()
        configuration = os.path.join(self.folder, "sway")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(f"xwayland disable\noutput * resolution 1280x900 scale {scale} bg #FF00FF solid_color\n")
        # It does not run as root, but needs nobody else's rights.
        as_user = ["unshare", "--user", "--map-user=1000", "--map-group=1000"] if os.getuid() == 0 else []
        self.outside = dict(self.environment, WLR_BACKENDS="headless", WLR_HEADLESS_OUTPUTS="2", WLR_RENDERER="pixman",
                            WLR_LIBINPUT_NO_DEVICES="1", SWAYSOCK=os.path.join(self.folder, "run", "sway"),
                            WAYLAND_DISPLAY="wayland-1")
        self.compositor = subprocess.Popen([*as_user, "sway", "--config", configuration], env=self.outside,
                                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for(lambda: os.path.exists(self.outside["SWAYSOCK"]))
        self.environment.update(WAYLAND_DISPLAY="wayland-1", QT_QUICK_BACKEND="software")
        self.environment.pop("QT_QPA_PLATFORM", None)
        self.environment["ASAN_OPTIONS"] = self.environment.get("ASAN_OPTIONS", "") + ":detect_leaks=0"

    def close(self):
        super().close()
        self.compositor.terminate()
        self.compositor.wait()

    def windows(self, name):
        """Of the windows of this name: whether they float, the size, whether they cover a screen."""
        tree = subprocess.run(["swaymsg", "-t", "get_tree"], env=self.outside, capture_output=True, check=True).stdout
        found, nodes = [], [json.loads(tree)]
        while nodes:
            node = nodes.pop()
            nodes += node["nodes"] + node["floating_nodes"]
            if node.get("pid") and node["name"] == name:
                found.append((node["type"] == "floating_con", node["geometry"]["width"], node["geometry"]["height"],
                              node["fullscreen_mode"] == 1))
        return found

    def colours(self):
        """Those of the middle line of both screens."""
        picture = subprocess.run(["grim", "-s", "1", "-t", "ppm", "-"], env=self.outside, capture_output=True,
                                 check=True).stdout
        width, height = map(int, picture.split(maxsplit=3)[1:3])
        line = picture[-width * height * 3:][height // 2 * width * 3:][:width * 3]
        return [line[place:place + 3] for place in range(0, len(line), 3)]


class WaylandTest(unittest.TestCase):
    def setUp(self):
        for tool in ("Xvfb", "openbox", "weston", "sway", "grim", "xdotool", "dbus-daemon"):
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

    def test_windows_of_one_size_float_where_others_are_tiled(self):
        desktop = SwayDesktop(1.5)
        self.addCleanup(desktop.close)
        self.assertIn("told by the Wayland compositor", desktop.run("doctor").stdout)
        desktop.start()
        desktop.wait_for(lambda: desktop.windows("Welcome to Tomcatto") == [(True, 640, 500, False)])
        self.assertEqual(desktop.run("panel").returncode, 0)
        desktop.wait_for(lambda: (True, 280, 460, False) in desktop.windows("Tomcatto"))
        self.assertEqual(desktop.run("window", "general").returncode, 0)
        desktop.wait_for(lambda: any(not floats for floats, *_ in desktop.windows("Tomcatto")))
        desktop.wait_for(lambda: b"\xff\x00\xff" in desktop.colours())  # the second screen is empty
        desktop.run("start")
        self.assertEqual(desktop.run("skip").returncode, 0)
        desktop.wait_for(lambda: desktop.windows("Short break") == [(False, 853, 600, True)] * 2)
        desktop.wait_for(lambda: b"\xff\x00\xff" not in desktop.colours())
        self.assertEqual(desktop.end(), 0, desktop.output()[-2000:])

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
