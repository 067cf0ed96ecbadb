#!/usr/bin/python3
"""The desktop program on a real X server with a window manager and a session bus: keys and windows."""

import os
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from session_manager import SessionManager
from tomcatto_process import PROGRAM, Tomcatto


class Desktop(Tomcatto):
    """One user's desktop session around Tomcatto."""

    def __init__(self):
        super().__init__()
        read, write = os.pipe()
        # Without "-noreset" it begins anew when its last client has gone, and refuses others meanwhile.
        # Without "-r" a key is pressed again and again while the machine is too busy to let go of it.
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-noreset", "-r", "-screen", "0", "1280x900x24"],
                                       pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as display:
            self.environment["DISPLAY"] = ":" + display.readline().strip()
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                               env=self.environment, text=True, stderr=subprocess.DEVNULL)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)
        self.helpers = [manager, bus, self.server]
        self.environment.update(QT_QPA_PLATFORM="xcb", QT_QUICK_BACKEND="software")
        self.outside = dict(self.environment)

    def close(self):
        super().close()
        for helper in self.helpers:
            helper.terminate()
            helper.wait()

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.outside, capture_output=True, text=True,
                              check=False, timeout=60).stdout.split()

    def windows(self, name):
        return self.tool("search", "--onlyvisible", "--name", name)

    def press(self, *keys):
        for key in keys:
            self.tool("key", key)
            time.sleep(0.15)

    def is_focused(self, name):
        # What the window manager calls active may not have the keyboard yet.
        return self.tool("getwindowfocus", "getwindowname") == name.split()


class DesktopTest(unittest.TestCase):
    def setUp(self):
        for tool in ("Xvfb", "openbox", "xdotool", "dbus-daemon"):
            self.assertTrue(shutil.which(tool), f"{tool} is missing; run Tools/install-packages test")
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)

    def start(self, *arguments):
        self.desktop.start(*arguments)
        return self.desktop

    def test_onboarding_comes_once_and_leads_to_a_focus_phase(self):
        desktop = self.start()
        desktop.wait_for(lambda: desktop.windows("Welcome to Tomcatto"))
        desktop.wait_for(lambda: desktop.is_focused("Welcome to Tomcatto"))
        time.sleep(0.5)
        desktop.press("Tab", "space")
        desktop.wait_for(lambda: desktop.status()["phase"] == "work" or desktop.press("shift+Tab", "space") is not None)
        desktop.wait_for(lambda: desktop.status()["phase"] == "work")
        self.assertEqual(desktop.run("settings", "get", "hasCompletedOnboarding").stdout, "true\n")
        self.assertEqual(desktop.end(signal.SIGTERM), 0)
        self.assertEqual([row[0] for row in desktop.records()], ["work"])

    def test_the_panel_by_keyboard(self):
        desktop = self.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "1000")
        self.assertFalse(desktop.windows("Welcome"), "onboarding was completed")
        self.assertEqual(desktop.run("panel").returncode, 0)
        desktop.wait_for(lambda: desktop.tool("getactivewindow"))
        time.sleep(0.8)
        desktop.press("space")
        desktop.wait_for(lambda: desktop.status()["phase"] == "work")
        desktop.press("space")
        desktop.wait_for(lambda: desktop.status()["isPaused"])
        desktop.press("space")
        desktop.wait_for(lambda: not desktop.status()["isPaused"])
        desktop.press("Tab", "Tab", "space")
        desktop.wait_for(lambda: desktop.status()["phase"] == "shortBreak")
        # The break covers the screen, keeps the keyboard and takes Esc, which skips it. A panel comes afterwards.
        desktop.wait_for(lambda: desktop.is_focused("Short break"))
        self.assertEqual(desktop.run("panel").returncode, 0)
        self.assertEqual(desktop.run("videos", "preview").returncode, 1)
        desktop.press("Escape")
        desktop.wait_for(lambda: desktop.status()["phase"] == "work")
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        time.sleep(0.8)
        desktop.press("Tab", "space")
        desktop.wait_for(lambda: desktop.status()["phase"] == "idle")
        desktop.press("Escape")
        desktop.wait_for(lambda: not desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.run("window", "about").returncode, 0)
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.run("window", "nowhere").returncode, 2)
        second = desktop.run()
        self.assertEqual((second.returncode, "tomcatto panel" in second.stdout), (0, True))
        desktop.press("ctrl+w")
        desktop.wait_for(lambda: not desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.status()["phase"], "idle", "closing the window ends nothing")
        self.assertEqual(desktop.run("videos", "preview").returncode, 0)
        desktop.wait_for(lambda: desktop.windows("Break preview"))
        desktop.run("start")
        desktop.run("skip")
        desktop.wait_for(lambda: desktop.is_focused("Short break"))
        self.assertFalse(desktop.windows("Break preview"), "one video is heard")
        self.assertEqual(desktop.end(), 0, desktop.output())
        self.assertNotIn("TypeError", desktop.output(), "bindings never outlive what they read")

    def test_says_that_the_views_are_missing(self):
        with tempfile.TemporaryDirectory(dir=os.path.dirname(PROGRAM)) as folder:
            program = os.path.join(folder, "tomcatto-desktop")
            os.link(PROGRAM + "-desktop", program)
            desktop = self.desktop
            desktop.start("-hasCompletedOnboarding", "true", program=program)
            for command in (("panel",), ("window",), ("window", "about"), ("videos", "preview")):
                result = desktop.run(*command)
                self.assertEqual(result.returncode, 4, command)
                self.assertIn("tomcatto-views does not start; is Tomcatto installed completely?", result.stderr)
            for command, status in (("start", 0), ("skip", 0), ("panel", 4)):
                self.assertEqual(desktop.run(command).returncode, status, "without views nothing covers the screens")
            self.assertEqual(desktop.end(), 0, desktop.output())
            self.assertEqual([row[0] for row in desktop.records()], ["work", "shortBreak"])

    def test_a_session_that_asks_ends_nothing_until_it_ends(self):
        manager = SessionManager()
        self.desktop.environment["SESSION_MANAGER"] = manager.address
        desktop = self.start("-hasCompletedOnboarding", "true", "--ui-test")
        desktop.run("start")
        manager.ask_whether_to_end()
        desktop.wait_for(lambda: "lastActiveAt" in desktop.defaults()["inFlightSession"])
        manager.go_on()
        self.assertEqual((desktop.status()["phase"], desktop.records()), ("work", []))
        manager.ask_whether_to_end()
        manager.end()
        self.assertEqual(desktop.process.wait(timeout=60), 0, desktop.output())
        self.assertEqual([row[0] for row in desktop.records()], ["work"])

    def test_ends_cleanly_whatever_is_open(self):
        desktop = self.desktop
        completed = ("-hasCompletedOnboarding", "true", "--ui-test")
        for arguments, opening, end, recorded in (
                ((), ("status",), signal.SIGTERM, "work"),
                (completed, ("panel",), signal.SIGINT, "work"),
                (completed, ("window", "videos"), signal.SIGHUP, "work"),
                (completed, ("videos", "preview"), None, "work"),
                (completed, ("skip",), signal.SIGTERM, "shortBreak"),
        ):
            with self.subTest(open=opening):
                desktop.start(*arguments)
                self.assertEqual(desktop.run("start").returncode, 0)
                self.assertEqual(desktop.run(*opening).returncode, 0)
                desktop.wait_for(lambda: desktop.tool("getactivewindow"))
                # A player takes its time; the end comes while it plays.
                time.sleep(1.5)
                if end is None:
                    self.assertEqual(desktop.run("quit").returncode, 0)
                self.assertEqual(desktop.end(end) if end else desktop.process.wait(timeout=60), 0, desktop.output())
                self.assertEqual(desktop.records("phase, wasCompleted")[-1], (recorded, 0))
        desktop.start(*completed)
        former = desktop.process
        former.terminate()
        desktop.start(*completed, wait=False)
        self.assertEqual(former.wait(timeout=60), 0)
        desktop.wait_for(lambda: desktop.run("status").returncode == 0)
        self.assertIsNone(desktop.process.poll(), "a start takes the place of one that is ending")
        self.assertNotIn("TypeError", desktop.output())


if __name__ == "__main__":
    unittest.main()
