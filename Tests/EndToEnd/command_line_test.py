#!/usr/bin/python3
"""The program as people and scripts use it: commands, exit statuses, files."""

import glob
import json
import os
import pty
import select
import signal
import socket
import subprocess
import time
import unittest

from tomcatto_process import PROGRAM, Tomcatto


class CommandLineTest(unittest.TestCase):
    def setUp(self):
        self.tomcatto = Tomcatto()
        self.addCleanup(self.tomcatto.close)

    def expect(self, status, *arguments):
        result = self.tomcatto.run(*arguments)
        self.assertEqual(result.returncode, status, f"{arguments}: {result.stdout}{result.stderr}")
        return result

    def test_statuses_without_an_application(self):
        for command in ("start", "pause", "quit", "status", "panel"):
            self.assertIn("not running", self.expect(3, command).stderr)
        self.expect(3, "preset", "deep")
        self.assertIn("1 to 10800", self.expect(2, "settings", "set", "workDurationSeconds", "0").stderr)
        self.expect(2, "-noSuchKey", "5")
        self.expect(0, "settings", "set", "workDurationSeconds", "90")
        self.assertEqual(self.expect(0, "settings", "get", "workDurationSeconds").stdout, "90\n")
        self.assertEqual(len(self.expect(0, "settings", "list").stdout.splitlines()), 16)
        self.assertIn("Nothing here yet", self.expect(0, "stats").stdout)
        self.assertFalse(os.path.exists(self.tomcatto.store_path), "looking makes no store")
        with open("/dev/full", "w", encoding="utf-8") as full:
            self.assertEqual(subprocess.call([PROGRAM, "stats"], env=self.tomcatto.environment, stdout=full,
                                             stderr=subprocess.DEVNULL), 4)

    def test_walks_the_set_and_follows(self):
        self.tomcatto.start("-workDurationSeconds", "2", "-shortBreakDurationSeconds", "1",
                            "-longBreakDurationSeconds", "1", "-cyclesBeforeLongBreak", "2")
        follower = subprocess.Popen([PROGRAM, "status", "--follow", "--json"], env=self.tomcatto.environment,
                                    stdout=subprocess.PIPE, text=True)
        first = follower.stdout.readline()
        self.expect(0, "start")
        self.expect(1, "start")
        self.tomcatto.wait_for(lambda: len(self.tomcatto.records()) >= 4)
        self.assertEqual(self.tomcatto.records()[:4], [("work", 2, 2, 0, 1, 0), ("shortBreak", 1, 1, 0, 1, 0),
                                                       ("work", 2, 2, 1, 1, 0), ("longBreak", 1, 1, 1, 1, 0)])
        self.expect(0, "quit")
        self.assertEqual(self.tomcatto.process.wait(timeout=10), 0)
        lines = [json.loads(line) for line in (first + follower.communicate(timeout=10)[0]).splitlines()]
        phases = [line["phase"] for line in lines]
        self.assertEqual([p for i, p in enumerate(phases) if i == 0 or p != phases[i - 1]][:6],
                         ["idle", "work", "shortBreak", "work", "longBreak", "work"])
        keys = [(line["phaseToken"], line["isPaused"], line["todayCompleted"]) for line in lines]
        self.assertTrue(all(a != b for a, b in zip(keys, keys[1:-1])), "no line for a mere tick")
        self.assertEqual(self.tomcatto.defaults(), {}, "values for one run are not stored")

    def test_operations_and_their_refusals(self):
        self.tomcatto.start("-workDurationSeconds", "1000")
        for command in ("pause", "resume", "skip", "take-break", "extend", "reset"):
            self.expect(1, command)
        for command in ("start", "pause", "resume", "toggle", "toggle", "extend", "skip"):
            self.expect(0, command)
        self.assertEqual(self.tomcatto.status()["phase"], "shortBreak")
        self.expect(0, "preset", "deep")
        self.expect(0, "settings", "set", "dailyGoalPomodoros", "3")
        self.assertEqual(self.tomcatto.status()["dailyGoal"], 3)
        self.expect(0, "reset")
        self.assertEqual(self.tomcatto.defaults()["workDurationSeconds"], 3000)
        second = self.expect(0)
        self.assertIn("tomcatto panel", second.stdout)
        self.tomcatto.wait_for(lambda: len(self.tomcatto.records()) == 2)
        self.assertEqual([row[1] for row in self.tomcatto.records()], [1300, 300])

    def test_the_end_of_the_process_records(self):
        for with_signal in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.tomcatto.start()
            self.expect(0, "start")
            self.assertEqual(self.tomcatto.end(with_signal), 0)
            self.assertNotIn("inFlightSession", self.tomcatto.defaults())
            self.assertFalse(os.path.exists(self.tomcatto.socket_path))
        self.assertEqual(self.tomcatto.records("phase, wasCompleted, wasSkipped"), [("work", 0, 0)] * 3)

    def test_rubbish_on_the_socket_holds_nobody_up(self):
        self.tomcatto.start()
        hanging = [socket.socket(socket.AF_UNIX) for _ in range(20)]
        for client in hanging:
            self.addCleanup(client.close)
            client.connect(self.tomcatto.socket_path)
            client.sendall(b'{"command":')
        for rubbish in (b"\n", b"\xff\x00\n", b"{}\n", b"[" * 60_000 + b"\n", b"x" * 70_000):
            with socket.socket(socket.AF_UNIX) as client:
                client.settimeout(5)
                client.connect(self.tomcatto.socket_path)
                client.sendall(rubbish)
                answer = b""
                while not answer.endswith(b"\n"):
                    answer += client.recv(4096)
                self.assertEqual(json.loads(answer)["status"], 2)
        self.assertEqual(self.tomcatto.status()["phase"], "idle")

    def test_two_starts_at_one_moment_recover_one_marker(self):
        self.tomcatto.start()
        self.expect(0, "start")
        time.sleep(1.2)
        self.tomcatto.end(signal.SIGKILL)
        starts = [self.tomcatto.start(wait=False) for _ in range(4)]
        self.tomcatto.wait_for(lambda: sum(process.poll() is None for process in starts) == 1)
        self.tomcatto.process = next(process for process in starts if process.poll() is None)
        self.assertEqual([process.returncode for process in starts if process.poll() is not None], [0] * 3)
        self.tomcatto.wait_for(lambda: len(self.tomcatto.records()) == 1)
        self.assertEqual(self.tomcatto.records()[0][0], "work")
        self.assertEqual(self.tomcatto.status()["phase"], "idle")

    def test_corrupt_defaults_are_set_aside(self):
        self.tomcatto.write_defaults('{"workDurationSeconds": 90,')
        self.tomcatto.start()
        self.assertEqual(self.expect(0, "settings", "get", "workDurationSeconds").stdout, "1500\n")
        self.assertEqual(len(glob.glob(self.tomcatto.defaults_path + ".corrupt-*")), 1)
        self.assertIn("error", self.tomcatto.output())

    def test_other_keys_of_the_file_stay(self):
        self.tomcatto.write_defaults('{"mine": {"a": [1, 2.5, null]}, "soundEnabled": 1}')
        self.tomcatto.start()
        self.assertEqual(self.expect(0, "settings", "get", "soundEnabled").stdout, "true\n", )
        self.expect(0, "settings", "set", "soundEnabled", "false")
        self.assertEqual(self.tomcatto.defaults(), {"mine": {"a": [1, 2.5, None]}, "soundEnabled": False})

    def test_keys_of_the_terminal(self):
        process, terminal = pty.fork()
        if process == 0:
            os.execve(PROGRAM, [PROGRAM, "-workDurationSeconds", "100"], self.tomcatto.environment)
        self.addCleanup(os.close, terminal)

        def read_until(text):
            seen = b""
            while text not in seen:
                self.assertTrue(select.select([terminal], [], [], 20)[0], f"no {text} in {seen}")
                seen += os.read(terminal, 4096)

        read_until(b"Idle")
        for key, shown in ((b" ", b"01:40"), (b" ", b"paused"), (b"e", b"06:"), (b"s", b"Short break"), (b"r", b"Idle")):
            os.write(terminal, key)
            read_until(shown)
        os.write(terminal, b" ")
        read_until(b"Focus")
        os.write(terminal, b"q")
        self.assertEqual(os.waitpid(process, 0)[1], 0)
        self.assertEqual([row[0] for row in self.tomcatto.records()], ["work", "shortBreak", "work"])

    def test_a_store_that_cannot_be_opened_ends_with_its_message(self):
        os.makedirs(os.path.dirname(self.tomcatto.store_path))
        with open(self.tomcatto.store_path, "wb") as store:
            store.write(b"this is no database " * 100)
        for arguments in ((), ("stats",)):
            result = self.expect(4, *arguments)
            self.assertIn("Unrecoverable Core Data error: ", result.stderr)
        with open(self.tomcatto.store_path, "rb") as store:
            self.assertTrue(store.read().startswith(b"this is no database"), "nothing is overwritten")


if __name__ == "__main__":
    unittest.main()
