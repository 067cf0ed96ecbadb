#!/usr/bin/python3
"""The desktop program beside a notification server: what it shows, and where its buttons and clicks lead."""

import os
import shutil
import subprocess
import unittest

from desktop_test import Desktop

SETTINGS = """[global]
    offset = 40x40
    mouse_left_click = do_action
    dmenu = {menu}
[urgency_normal]
    timeout = 0
"""


class NotificationTest(unittest.TestCase):
    def setUp(self):
        self.assertTrue(shutil.which("dunst"), "dunst is missing; run Tools/install-packages test")
        self.desktop = desktop = Desktop()
        self.addCleanup(desktop.close)
        # Stands for the menu of buttons and presses the one that is named in a file.
        self.choice = os.path.join(desktop.folder, "choice")
        menu = os.path.join(desktop.folder, "menu")
        with open(menu, "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\nexec grep -F -- "$(cat {self.choice})"\n')
        os.chmod(menu, 0o700)
        settings = os.path.join(desktop.folder, "dunstrc")
        with open(settings, "w", encoding="utf-8") as file:
            file.write(SETTINGS.format(menu=menu))
        desktop.helpers.insert(0, subprocess.Popen(["dunst", "-config", settings], env=desktop.environment))

    def shows(self, count):
        answer = subprocess.run(["dunstctl", "count", "displayed"], env=self.desktop.outside, capture_output=True,
                                text=True, check=False).stdout
        return answer.strip() == str(count)

    def choose(self, button, led):
        """Presses a button of the only banner, which is to lead to something."""
        self.desktop.wait_for(lambda: self.shows(1))
        with open(self.choice, "w", encoding="utf-8") as file:
            file.write(button)
        subprocess.run(["dunstctl", "context"], env=self.desktop.outside, check=True)
        self.desktop.wait_for(led)
        subprocess.run(["dunstctl", "close-all"], env=self.desktop.outside, check=True)

    def press_banner(self):
        self.desktop.wait_for(lambda: self.desktop.windows("Dunst"))
        self.desktop.tool("mousemove", "--window", self.desktop.windows("Dunst")[0], "20", "10", "click", "1")

    def test_buttons_and_clicks_reach_the_timer_and_the_windows(self):
        desktop = self.desktop
        desktop.start("-hasCompletedOnboarding", "true", "--ui-test", "-workDurationSeconds", "1",
                      "-overflowEnabled", "true")
        desktop.run("start")
        self.choose("+5 min", lambda: desktop.status()["plannedSeconds"] > 300)
        desktop.run("reset")
        desktop.run("start")
        self.choose("Take break", lambda: desktop.status()["phase"] == "shortBreak")
        desktop.run("reset")
        desktop.run("start")
        desktop.wait_for(lambda: not self.shows(0))

        # A window of another program has the keyboard and lies over everything.
        self.assertEqual(desktop.run("window", "timer").returncode, 0)
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        other = subprocess.Popen(["xev", "-geometry", "1200x700+0+0"], env=desktop.outside, stdout=subprocess.DEVNULL)
        desktop.helpers.insert(0, other)
        desktop.wait_for(lambda: desktop.is_focused("Event Tester"))
        desktop.tool("mousemove", "60", "600", "click", "1")
        self.press_banner()
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        # Without a window it is the panel that comes.
        desktop.press("ctrl+w")
        desktop.wait_for(lambda: desktop.is_focused("Event Tester"))
        self.press_banner()
        desktop.wait_for(lambda: desktop.is_focused("Tomcatto"))
        self.assertEqual(desktop.end(), 0, desktop.output())
        desktop.wait_for(lambda: self.shows(0))


if __name__ == "__main__":
    unittest.main()
