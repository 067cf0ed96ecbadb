#!/usr/bin/python3
"""What a screen reader gets of the desktop program over the accessibility bus."""

import json
import os
import signal
import subprocess
import time
import unittest

from desktop_test import Desktop
from tomcatto_process import PROGRAM

READER = ["/usr/bin/python3", os.path.join(os.path.dirname(os.path.abspath(__file__)), "screen_reader.py")]


class AccessibilityTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)
        self.desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.heard = os.path.join(self.desktop.folder, "heard")
        with open(self.heard, "wb") as output:
            self.desktop.helpers.insert(0, subprocess.Popen([*READER, "listen"], env=self.desktop.outside, stdout=output))
        self.desktop.wait_for(lambda: '"ready"' in self.lines())

    def lines(self):
        with open(self.heard, encoding="utf-8") as file:
            return file.read().splitlines()

    def notices(self):
        heard = [json.loads(line) for line in self.lines()[1:]]
        return [words for kind, words in heard if kind == "showing" and words]

    def names(self):
        return subprocess.run([*READER, "read"], env=self.desktop.outside, capture_output=True, text=True, check=True,
                              timeout=60).stdout.splitlines()

    def test_a_phase_is_announced_and_its_seconds_are_only_told_to_who_asks(self):
        desktop = self.desktop
        desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "63", "-selectedLanguage", "en")
        self.assertEqual(desktop.run("panel").returncode, 0)
        planned = "Focus, 1 minute 3 seconds planned"
        desktop.wait_for(lambda: planned in self.names())
        self.assertEqual(desktop.run("start").returncode, 0)
        expected = ["Focus, 1 minute 3 seconds left", "Focus, 1 minute left"]
        desktop.wait_for(lambda: self.notices() == expected)
        time.sleep(1)
        heard = len(self.lines())
        time.sleep(3)
        # While nobody asks. One may have been on its way.
        self.assertLess(len(self.lines()) - heard, 2, "nobody hears the clock tick")
        remaining = desktop.status()["remainingSeconds"]
        told = [name for name in self.names() if name.endswith("seconds left")]
        self.assertEqual(len(told), 1, told)
        self.assertIn(int(told[0].split()[1]), range(remaining - 5, remaining + 1), "as it is now")
        self.assertIn("Tomcatto, 00:", "\n".join(self.names()), "the pill's words")
        self.assertEqual(desktop.run("reset").returncode, 0)
        desktop.wait_for(lambda: self.notices() == [*expected, planned])

    def test_the_widget_follows_the_application_and_says_when_that_is_gone(self):
        desktop = self.desktop
        widget = subprocess.Popen([PROGRAM, "widget", "--size", "small"], env=desktop.environment)
        desktop.helpers.insert(0, widget)

        def wait_for(words):
            desktop.wait_for(lambda: words in self.names())

        wait_for("Tomcatto is not running")
        desktop.start("--terminal")
        wait_for("Focus, 25 minutes planned, goal 0 of 8")
        for command, words in (("start", "Focus, 24 minutes left"), ("pause", "Focus, paused, 24 minutes left"),
                               ("resume", "Focus, 24 minutes left")):
            self.assertEqual(desktop.run(command).returncode, 0)
            # A pause within the first second would keep all twenty-five.
            desktop.wait_for(lambda: desktop.status()["remainingSeconds"] < 1500)
            wait_for(words + ", goal 0 of 8")
        desktop.end(signal.SIGKILL)
        path = os.path.join(desktop.folder, "data", "group.studio.quillbay.Tomcatto", "widget-snapshot.json")
        with open(path, "r+", encoding="utf-8") as file:
            left = json.load(file) | {"phaseEndsAt": "2026-01-01T00:00:00Z"}
            file.seek(0)
            file.truncate()
            json.dump(left, file)
        wait_for("Tomcatto is not running, goal 0 of 8")
        widget.terminate()
        self.assertEqual(widget.wait(60), 0)


if __name__ == "__main__":
    unittest.main()
