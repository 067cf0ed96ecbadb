#!/usr/bin/python3
"""The program on a session bus of its own: other programs follow and drive it, flood it, and lose the bus."""

import itertools
import json
import os
import re
import select
import signal
import socket
import subprocess
import unittest

import gi
gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from tomcatto_process import ROOT, Tomcatto  # noqa: E402

NAME = "studio.quillbay.Tomcatto"
OBJECT = [NAME, "/studio/quillbay/Tomcatto1", "studio.quillbay.Tomcatto1"]
INTERFACE_FILE = os.path.join(ROOT, "Tomcatto", "Platform", "Freedesktop", OBJECT[2] + ".xml")
VIDEO = os.path.join(ROOT, "Resources", "BundledVideos")


class BusTest(unittest.TestCase):
    def setUp(self):
        self.tomcatto = Tomcatto()
        self.addCleanup(self.tomcatto.close)
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], text=True,
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=self.tomcatto.environment)
        self.addCleanup(self.bus.wait)
        self.addCleanup(self.bus.kill)
        self.address = self.bus.stdout.readline().strip()
        self.addCleanup(self.bus.stdout.close)
        self.tomcatto.environment["DBUS_SESSION_BUS_ADDRESS"] = self.address

    def start(self, *arguments):
        self.tomcatto.start(*arguments)
        self.tomcatto.wait_for(lambda: self.busctl("status", NAME).returncode == 0)

    def busctl(self, *arguments):
        return subprocess.run(["busctl", "--user", "--json=short", *arguments], env=self.tomcatto.environment,
                              capture_output=True, text=True, timeout=60, check=False)

    def call(self, method, *arguments):
        """What the method returns, or why it does not."""
        answer = self.busctl("call", *OBJECT, method, *arguments)
        return json.loads(answer.stdout or '{"data": []}')["data"] if answer.returncode == 0 else answer.stderr

    def property(self, name):
        return json.loads(self.busctl("get-property", *OBJECT, name).stdout)["data"]

    def test_every_method_and_property(self):
        self.start("-workDurationSeconds", "100", "-shortBreakDurationSeconds", "50")
        video = os.path.join(VIDEO, next(name for name in os.listdir(VIDEO) if name.endswith(".mp4")))
        phase = self.call("AddPhase", "sx", "2026-11-20T09:30", "25")[0]
        added = self.call("AddVideo", "s", video)[0]
        steps = [("Pause", (), "No phase is running."), ("Start", (), " work, round 1 of 4"),
                 ("Start", (), "A phase is already running."), ("Pause", (), " (paused)"), ("Resume", (), " work"),
                 ("Toggle", (), " (paused)"), ("Toggle", (), " work"), ("Extend", (), " work"),
                 ("TakeBreak", (), "not in overtime"), ("Skip", (), "short break"), ("Reset", (), " idle"),
                 ("ShowPanel", (), "runs in a terminal"), ("ShowWindow", ("s", "about"), "runs in a terminal"),
                 ("PreviewVideo", ("s", ""), "runs in a terminal"), ("ApplyPreset", ("s", "odd"), "Unknown preset"),
                 ("ApplyPreset", ("s", "deep"), "[]"), ("GetSetting", ("s", "workDurationSeconds"), "3000"),
                 ("SetSetting", ("ss", "dailyGoalPomodoros", "25"), "whole number from 1 to 24"),
                 ("SetSetting", ("ss", "dailyGoalPomodoros", "3"), "[]"), ("SetSetting", ("s", "x"), 'takes "ss"'),
                 ("ListSettings", (), "'dailyGoalPomodoros': {'type': 's', 'data': '3'}"),
                 ("GetStatistics", ("s", "allTime"), "'completedWorkCount': {'type': 'x', 'data': 1}"),
                 ("GetStatistics", ("s", "ever"), "Unknown range"), ("AddPhase", ("ss", "a", "b"), 'takes "sx"'),
                 ("RemovePhase", ("s", phase), "[]"), ("RemovePhase", ("s", phase), "There is no phase"),
                 ("AddVideo", ("s", "/nowhere"), "/nowhere"), ("SelectVideo", ("s", added), "[]"),
                 ("ListVideos", (), "'isSelected': {'type': 'b', 'data': True}"), ("DeselectVideo", ("s", added), "[]"),
                 ("RemoveVideo", ("s", added), "[]"), ("ListVideos", (), "[[]]"), ("Nothing", (), "no method"),
                 ("Quit", (), "[]")]
        answer = self.busctl("introspect", "--xml-interface", *OBJECT[:2]).stdout
        with open(INTERFACE_FILE, encoding="utf-8") as file:
            interface = re.search(r"<interface.*</interface>", file.read(), re.DOTALL).group()
        self.assertIn(interface, answer, "what is installed is what is answered")
        methods = set(re.findall(r'<method name="(\w+)"', interface))
        self.assertEqual(methods | {"Nothing"}, {name for name, *_ in steps}, "every method is driven")
        for name, arguments, expected in steps[:-1]:
            self.assertIn(expected, str(self.call(name, *arguments)), (name, arguments))
        status = self.tomcatto.status()
        properties = {name: self.property(name) for name in re.findall(r'<property name="(\w+)"', interface)}
        self.assertEqual({name[0].upper() + name[1:]: "" if value is None else value for name, value in status.items()}, properties)
        for arguments, error in ((["get-property", *OBJECT, "Odd"], "Odd"), (["set-property", *OBJECT, "Phase", "s", "work"], "Phase")):
            self.assertIn(error, self.busctl(*arguments).stderr)
        # Who asks for the end gets an answer, and what ran is recorded by then.
        self.call("Start")
        self.assertEqual((self.call("Quit"), len(self.tomcatto.records())), ([], 3))
        self.assertEqual(self.tomcatto.process.wait(timeout=60), 0)

    def test_tells_changes_and_no_ticks(self):
        self.start("-workDurationSeconds", "100")
        monitor = subprocess.Popen(["busctl", "--user", "--json=short", "monitor", "--match",
                                    f"type='signal',path='{OBJECT[1]}'"], env=self.tomcatto.environment, text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(monitor.stdout.close)
        goals = itertools.cycle("34")
        self.tomcatto.wait_for(lambda: self.call("SetSetting", "ss", "dailyGoalPomodoros", next(goals)) == [] and
                               select.select([monitor.stdout], [], [], 0.2)[0])
        self.call("Start")
        self.tomcatto.wait_for(lambda: self.property("RemainingSeconds") <= 97)
        self.call("Skip")
        self.assertEqual(self.tomcatto.end(), 0)
        self.tomcatto.wait_for(lambda: self.busctl("status", NAME).returncode != 0)
        monitor.terminate()
        lines = [json.loads(line) for line in monitor.communicate()[0].splitlines()]
        data = [(line["member"], line["payload"]["data"]) for line in lines if line["member"] != "NameOwnerChanged"]
        transitions = [values for member, values in data if member == "PhaseChanged"]
        self.assertEqual([values[:3] + values[4:] for values in transitions],
                         [["idle", "work", "started", 0, 0, False], ["work", "shortBreak", "skipped", 0, 100, False]],
                         "the interface goes before what runs is ended")
        changes = [values[1] for member, values in data
                   if member == "PropertiesChanged" and "DailyGoal" not in values[1]]
        self.assertEqual([change["Phase"]["data"] for change in changes if "Phase" in change][:2], ["work", "shortBreak"])
        self.assertEqual(changes[0]["PhaseToken"]["data"], transitions[0][3])
        self.assertFalse({"RemainingSeconds", "OverflowSeconds", "Title"} & {name for change in changes for name in change})
        self.assertLessEqual(len(changes), 4, "ticks are not told")

    def test_a_flood_from_one_who_never_reads_holds_nobody_up(self):
        self.start("-workDurationSeconds", "1000")
        self.call("Start")
        flood = socket.socket(socket.AF_UNIX)
        self.addCleanup(flood.close)
        path = re.search(r"unix:(path|abstract)=([^,]*)", self.address)
        flood.connect(("\0" if path[1] == "abstract" else "") + path[2])
        flood.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        self.assertIn(b"OK", flood.recv(100))
        flood.sendall(b"BEGIN\r\n" + message("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "Hello", 1))
        self.tomcatto.process.send_signal(signal.SIGSTOP)
        flood.sendall(b"".join(message(*OBJECT, "Toggle", serial) for serial in range(2, 20_002)))
        self.tomcatto.process.send_signal(signal.SIGCONT)
        # Others are answered between the calls that wait, and few of those are kept.
        self.assertIn("whole number", self.call("SetSetting", "ss", "dailyGoalPomodoros", "0"))
        self.bus.kill()
        self.assertEqual(self.tomcatto.run("status").returncode, 0)
        self.assertEqual(self.tomcatto.end(), 0)

    def test_neither_the_bus_nor_the_name_is_waited_for(self):
        other = Gio.DBusConnection.new_for_address_sync(
            self.address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        ask = lambda method, arguments: other.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                                        method, arguments, None, Gio.DBusCallFlags.NONE, -1, None)
        ask("RequestName", GLib.Variant("(su)", (NAME, 0)))
        self.tomcatto.start()
        ask("ReleaseName", GLib.Variant("(s)", (NAME,)))
        self.tomcatto.wait_for(lambda: self.property("Phase") == "idle")
        # A call that comes with the end is carried out or refused, but not lost.
        for _ in range(5):
            self.tomcatto.process.send_signal(signal.SIGSTOP)
            call = subprocess.Popen(["busctl", "--user", "call", *OBJECT, "Extend"], env=self.tomcatto.environment,
                                    stderr=subprocess.PIPE, text=True)
            self.busctl("list")
            self.tomcatto.process.send_signal(signal.SIGTERM)
            self.assertEqual(self.tomcatto.end(signal.SIGCONT), 0)
            self.assertRegex(call.communicate(timeout=60)[1], "No phase is running|Tomcatto is ending|not provided")
            self.start()
        for with_signal in (signal.SIGSTOP, signal.SIGKILL):
            self.bus.send_signal(with_signal)
            self.assertEqual(self.tomcatto.run("start").returncode, 0)
            self.assertEqual(self.tomcatto.run("reset").returncode, 0)
            # The second start of this loop finds a bus that takes connections and says nothing, the last one none at all.
            self.assertEqual(self.tomcatto.end(), 0)
            self.tomcatto.start()


def message(destination, path, interface, member, serial):
    call = Gio.DBusMessage.new_method_call(destination, path, interface, member)
    call.set_serial(serial)
    return bytes(call.to_blob(Gio.DBusCapabilityFlags.NONE))


if __name__ == "__main__":
    unittest.main()
