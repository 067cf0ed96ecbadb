#!/usr/bin/python3
"""What the program finds of its surroundings: each part that is taken away is named, and nothing private."""

import json
import os
import shutil
import signal
import socket
import sqlite3
import subprocess
import unittest

from desktop_test import Desktop
from tomcatto_process import PROGRAM, Tomcatto


def findings(tomcatto):
    """The exit status, and each part's mark with what is said of it."""
    result = tomcatto.run("doctor", "--json")
    return result.returncode, {each["part"]: (each["mark"], each["found"] + " " + each["advice"])
                               for each in json.loads(result.stdout)}


class DoctorTest(unittest.TestCase):
    def expect(self, tomcatto, status, **expected):
        """Marks and words by part, an underscore for a space."""
        found_status, parts = findings(tomcatto)
        for part, (mark, words) in expected.items():
            found = parts[part.replace("_", " ")]
            self.assertEqual(found[0], mark, f"{part}: {found}")
            self.assertIn(words, found[1])
        self.assertEqual(found_status, status, parts)

    def test_without_a_desktop(self):
        tomcatto = Tomcatto()
        self.addCleanup(tomcatto.close)
        text = tomcatto.run("doctor").stdout
        self.assertEqual(len(text.splitlines()), len(findings(tomcatto)[1]))
        for private in (tomcatto.folder, socket.gethostname() + "/"):
            self.assertNotIn(private, text)
        self.expect(tomcatto, 0, history=("there", "~/data/Tomcatto/Tomcatto.sqlite, not made yet"), display=("lacking", "terminal"),
                    session_bus=("lacking", "none"), notifications=("lacking", "no notification server"),
                    sounds=("there", "Glass.wav"), codecs=("there", "MP4, H.264"), application=("there", "does not run"),
                    calls=("lacking", "no sound server answers"))
        self.assertFalse(os.path.exists(os.path.dirname(tomcatto.store_path)), "looking makes nothing")

        silent = socket.socket(socket.AF_UNIX)
        self.addCleanup(silent.close)
        silent.bind(os.path.join(tomcatto.folder, "bus"))
        silent.listen()
        tomcatto.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + silent.getsockname()
        tomcatto.environment["GST_PLUGIN_SYSTEM_PATH_1_0"] = tomcatto.folder
        self.expect(tomcatto, 0, session_bus=("lacking", "does not answer"), codecs=("lacking", "gstreamer1.0"),
                    audio=("lacking", "gstreamer1.0"))

        tomcatto.start()
        self.expect(tomcatto, 0, application=("there", "answers"), history=("there", "whole, 0 phases"))
        tomcatto.process.send_signal(signal.SIGSTOP)
        self.expect(tomcatto, 4, application=("failing", "does not answer"))
        tomcatto.process.send_signal(signal.SIGCONT)
        self.check_stores(tomcatto)
        with open(tomcatto.defaults_path, "w", encoding="utf-8") as settings:
            settings.write("{")
        self.expect(tomcatto, 4, settings=("failing", "begins anew"))
        self.assertEqual(os.listdir(os.path.dirname(tomcatto.defaults_path)).count("defaults.json"), 1, "it is left alone")

    def check_stores(self, tomcatto):
        """Each kind of store that cannot be used, the first two beside the application that uses it."""
        path = tomcatto.store_path
        with sqlite3.connect(path) as store:
            store.execute("begin exclusive")
            self.expect(tomcatto, 4, history=("failing", "locked"))
            store.rollback()
            store.execute("insert into PomodoroSessionRecord (phase) values ('work')")
        self.expect(tomcatto, 0, history=("there", "whole, 1 phases"))
        self.assertEqual(tomcatto.end(), 0)
        store.close()
        with open(path, "rb") as file:
            whole = file.read()
        newer = whole[:60] + (99).to_bytes(4, "big") + whole[64:]
        for content, words in ((newer, "version 99"), (b"not a store" * 100, "not a database"),
                               (whole[:4096] + b"\xff" * 4096 + whole[8192:], "Put a backup in its place")):
            with open(path, "wb") as file:
                file.write(content)
            self.expect(tomcatto, 4, history=("failing", words))
            self.assertEqual(os.listdir(os.path.dirname(path)), ["Tomcatto.sqlite"])
            with open(path, "rb") as file:
                self.assertEqual(file.read(), content)

    def test_on_a_desktop(self):
        desktop = Desktop()
        self.addCleanup(desktop.close)
        tray = subprocess.Popen(["trayer"], env=desktop.environment, stderr=subprocess.DEVNULL)
        server = subprocess.Popen(["dunst"], env=desktop.environment, stderr=subprocess.DEVNULL)
        desktop.helpers[:0] = [tray, server]
        desktop.wait_for(lambda: findings(desktop)[1]["tray"][0] == findings(desktop)[1]["notifications"][0] == "there")
        self.expect(desktop, 0, display=("there", "X11"), windows=("there", ""), session_bus=("there", ""),
                    notifications=("there", "dunst"), away=("there", "told by the X server"),
                    full_screen=("there", "window manager"), screen_lock=("lacking", "does not pause"))
        tray.terminate()
        tray.wait()
        server.send_signal(signal.SIGSTOP)
        self.expect(desktop, 0, tray=("lacking", "none"), notifications=("lacking", "does not answer"))
        server.send_signal(signal.SIGCONT)
        # An installation that is not whole.
        copy = os.path.join(desktop.folder, "program")
        os.mkdir(copy)
        for name in ("tomcatto", "tomcatto-desktop"):
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), name), copy)
        desktop.run = lambda *arguments: subprocess.run([os.path.join(copy, "tomcatto"), *arguments], text=True, check=False,
                                                        env=desktop.environment, capture_output=True)
        self.expect(desktop, 4, windows=("failing", "tomcatto-views"), codecs=("lacking", "tomcatto-film is not there"),
                    audio=("lacking", "tomcatto-sound is not there"), network=("lacking", "tomcatto-fetch is not there"),
                    sounds=("lacking", "Glass"), videos=("lacking", "none"), calls=("lacking", "tomcatto-calls is not there"))


if __name__ == "__main__":
    unittest.main()
