#!/usr/bin/python3
"""The program as people and scripts use it: commands, exit statuses, files."""

import fcntl
import datetime
import json
import os
import pty
import select
import shutil
import signal
import socket
import sqlite3
import subprocess
import threading
import time
import unittest
import uuid

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
        self.assertEqual(json.loads(self.expect(0, "manners", "--json").stdout), {
            "waitsDuringCalls": False, "waitsInFullScreen": False, "pausesWhenAway": False, "awayAfterMinutes": 5,
            "finishesSentence": False, "saysWordBefore": False, "wordBeforeSeconds": 30})
        self.assertIn("Nothing here yet", self.expect(0, "stats").stdout)
        self.assertFalse(os.path.exists(self.tomcatto.store_path), "looking makes no store")
        with open("/dev/full", "w", encoding="utf-8") as full:
            self.assertEqual(subprocess.call([PROGRAM, "stats"], env=self.tomcatto.environment, stdout=full,
                                             stderr=subprocess.DEVNULL), 4)

    def test_changes_without_an_application(self):
        autostart = os.path.join(self.tomcatto.folder, "config", "autostart")
        entry = os.path.join(autostart, "studio.quillbay.Tomcatto.desktop")
        for runs in (False, True):
            if runs:
                self.tomcatto.start()
            for value in ("true", "false"):
                self.expect(0, "manners", "finishesSentence", value)
                self.assertIn("finishesSentence " + value, self.expect(0, "manners").stdout.splitlines())
                self.assertEqual(self.tomcatto.defaults()["finishesSentence"], value == "true")
                self.expect(0, "settings", "set", "launchAtLogin", value)
                self.assertEqual(os.path.exists(entry), value == "true")
                self.assertEqual(self.tomcatto.defaults()["launchAtLogin"], value == "true")
            self.expect(0, "settings", "set", "launchAtLogin", "true")
            shutil.rmtree(autostart)
            self.assertEqual(self.expect(0, "settings", "get", "launchAtLogin").stdout, "false\n")
            with open(autostart, "w", encoding="utf-8"):
                self.assertIn("stays false: ", self.expect(4, "settings", "set", "launchAtLogin", "true").stderr)
            os.remove(autostart)
        self.assertEqual(self.tomcatto.end(), 0)

        videos = os.path.join(os.path.dirname(PROGRAM), "BundledVideos")
        add = [PROGRAM, "videos", "add"]
        names = [name for name in os.listdir(videos) if name.endswith(".mp4")][:3]
        adding = [subprocess.Popen([*add, name], cwd=videos, env=self.tomcatto.environment, stdout=subprocess.DEVNULL)
                  for name in names]
        self.assertEqual([process.wait(timeout=60) for process in adding], [0] * 3)
        first = self.expect(0, "videos", "list").stdout.split("\t")[0]
        for status, action, named, left in ((0, "select", first, 3), (1, "remove", first[:-8] + "00000000", 3), (2, "remove", "x", 3),
                                            (4, "add", "/nowhere", 3), (0, "remove", first, 2)):
            self.expect(status, "videos", action, named)
            self.assertEqual(len(self.expect(0, "videos", "list").stdout.splitlines()), left)
        self.tomcatto.start(wait=False)
        self.expect(0, "videos", "add", os.path.join(videos, names[0]))
        self.tomcatto.wait_for(lambda: self.tomcatto.run("status").returncode == 0)
        self.assertEqual(len(self.expect(0, "videos", "list").stdout.splitlines()), 3, "both waited for their turn")
        gone = shutil.copy(os.path.join(videos, names[1]), os.path.join(self.tomcatto.folder, "gone.mp4"))
        self.expect(0, "videos", "add", gone)
        os.remove(gone)
        self.assertTrue(self.expect(0, "videos", "list").stdout.endswith("\tgone.mp4\t(not found)\n"))

    def test_stats_of_a_history(self):
        self.expect(1, "videos", "remove", "11111111-1111-1111-1111-111111111111")  # makes an empty store
        today = datetime.datetime.now(datetime.timezone.utc).replace(hour=0, minute=0, second=0, microsecond=0)
        begins = {"today": today, "week": today - datetime.timedelta(days=today.weekday()),
                  "month": today.replace(day=1), "allTime": today - datetime.timedelta(days=400)}
        starts = sorted({begin.timestamp() - before for begin in begins.values() for before in (0, 1)})
        with sqlite3.connect(self.tomcatto.store_path) as store:
            for phase, completed, start in (("work", 0, starts[-1]), ("shortBreak", 1, starts[-1]),
                                            *(("work", 1, start) for start in starts)):
                store.execute("insert into PomodoroSessionRecord (id, phase, startedAt, endedAt, wasCompleted, wasSkipped,"
                              " plannedDurationSeconds, actualDurationSeconds, cycleIndex)"
                              " values (?, ?, ?, ?, ?, 0, 1500, 1500, 0)",
                              (str(uuid.uuid4()).upper(), phase, start, start + 1500, completed))
        for name, begin in begins.items():
            count = len(starts) if name == "allTime" else sum(start >= begin.timestamp() for start in starts)
            figures = json.loads(self.expect(0, "stats", "--range", name, "--json").stdout)
            self.assertEqual([figures[key] for key in ("range", "completedWorkCount", "focusMinutes", "todayCount")],
                             [name, count, 25 * count, 1])
            text = self.expect(0, "stats", "--range", name).stdout
            self.assertIn(f"  Focus phases    {count}\n", text)
            self.assertEqual(text == self.expect(0, "stats").stdout, name == "today")

    def test_walks_the_set_and_follows(self):
        self.tomcatto.start("-workDurationSeconds", "2", "-shortBreakDurationSeconds", "1",
                            "-longBreakDurationSeconds", "1", "-cyclesBeforeLongBreak", "2")
        follower = subprocess.Popen([PROGRAM, "status", "--follow", "--json"], env=self.tomcatto.environment,
                                    stdout=subprocess.PIPE, text=True)
        bar = subprocess.Popen([PROGRAM, "status", "--follow", "--format", "waybar"], env=self.tomcatto.environment,
                               stdout=subprocess.PIPE, text=True)
        first = follower.stdout.readline()
        bar_first = bar.stdout.readline()
        self.expect(0, "start")
        self.expect(1, "start")
        self.tomcatto.wait_for(lambda: len(self.tomcatto.records()) >= 4)
        records = self.tomcatto.records()[:4]
        self.assertEqual([(phase, planned, *rest) for phase, planned, _, *rest in records],
                         [("work", 2, 0, 1, 0), ("shortBreak", 1, 0, 1, 0),
                          ("work", 2, 1, 1, 0), ("longBreak", 1, 1, 1, 0)])
        # A busy machine ticks late; never may a whole phase come out shorter than it was planned.
        self.assertGreaterEqual(min(actual - planned for _, planned, actual, *_ in records), 0, records)
        self.expect(0, "quit")
        self.assertEqual(self.tomcatto.process.wait(timeout=60), 0)
        lines = [json.loads(line) for line in (first + follower.communicate(timeout=60)[0]).splitlines()]
        self.assertEqual(follower.returncode, 0, "the application was quit")
        phases = [line["phase"] for line in lines]
        self.assertEqual([p for i, p in enumerate(phases) if i == 0 or p != phases[i - 1]][:6],
                         ["idle", "work", "shortBreak", "work", "longBreak", "work"])
        keys = [(line["phaseToken"], line["isPaused"], line["todayCompleted"]) for line in lines]
        self.assertTrue(all(a != b for a, b in zip(keys, keys[1:-1])), "no line for a mere tick")
        bar_lines = [json.loads(line) for line in (bar_first + bar.communicate(timeout=60)[0]).splitlines()]
        self.assertTrue({("idle", "00:02"), ("work", "00:02"), ("work", "00:01")} <=
                        {(line["alt"], line["text"]) for line in bar_lines}, "a bar follows the clock")
        self.assertEqual(self.tomcatto.defaults(), {}, "values for one run are not stored")

    def test_a_follower_tells_a_crash_from_an_end(self):
        for with_signal, status in ((signal.SIGTERM, 0), (signal.SIGKILL, 3)):
            self.tomcatto.start()
            follower = subprocess.Popen([PROGRAM, "status", "--follow"], env=self.tomcatto.environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            self.assertIn("idle", follower.stdout.readline())
            with open("/dev/full", "w", encoding="utf-8") as full:
                refused = subprocess.run([PROGRAM, "status", "--follow"], env=self.tomcatto.environment, stdout=full,
                                         stderr=subprocess.PIPE, text=True, check=False)
                self.assertEqual((refused.returncode, "cannot be written" in refused.stderr), (4, True))
            self.tomcatto.end(with_signal)
            self.assertEqual("gone" in follower.communicate(timeout=60)[1], status == 3)
            self.assertEqual(follower.returncode, status)

    def test_is_found_from_another_session(self):
        here = self.tomcatto.environment["XDG_RUNTIME_DIR"]
        elsewhere = os.path.join(self.tomcatto.folder, "other")
        os.mkdir(elsewhere)
        for announced, runtime in ((here, elsewhere), (elsewhere, here)):
            self.tomcatto.environment["XDG_RUNTIME_DIR"] = announced
            self.tomcatto.start()
            self.tomcatto.environment["XDG_RUNTIME_DIR"] = runtime
            self.expect(0, "start")
            self.assertIn("already running", self.expect(0).stdout)
            os.chmod(announced, 0o777)
            self.expect(3, "status")
            os.chmod(announced, 0o700)
            # What it leaves behind leads nobody astray.
            self.tomcatto.end(signal.SIGKILL)
            self.expect(3, "status")

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
        for with_signal, arguments in ((signal.SIGTERM, ()), (signal.SIGINT, ()), (signal.SIGHUP, ("--verbose",))):
            self.tomcatto.start(*arguments)
            self.expect(0, "start")
            self.assertEqual(self.tomcatto.end(with_signal), 0)
            for level in (" debug ", " info "):
                self.assertEqual(level in self.tomcatto.output(), bool(arguments), self.tomcatto.output())
            self.assertNotIn("inFlightSession", self.tomcatto.defaults())
            self.assertFalse(os.path.exists(self.tomcatto.socket_path))
        self.assertEqual(self.tomcatto.records("phase, wasCompleted, wasSkipped"), [("work", 0, 0)] * 3)

    def test_a_start_takes_the_place_of_one_that_ends(self):
        tomcatto = self.tomcatto
        tomcatto.start()
        for _ in range(4):
            former = tomcatto.process
            former.send_signal(signal.SIGTERM)
            tomcatto.start(wait=False)
            self.assertEqual(former.wait(timeout=60), 0)
            tomcatto.wait_for(lambda: tomcatto.run("status").returncode == 0)
            self.assertIsNone(tomcatto.process.poll())
        tomcatto.process.send_signal(signal.SIGTERM)
        self.expect(0, "settings", "set", "dailyGoalPomodoros", "3")
        self.assertEqual((tomcatto.process.wait(timeout=60), tomcatto.defaults()["dailyGoalPomodoros"]), (0, 3))
        tomcatto.start()
        # One that hangs is neither waited for for good nor taken for an answer.
        tomcatto.process.send_signal(signal.SIGSTOP)
        self.assertEqual(self.expect(1).stderr, "tomcatto: Tomcatto is already running, but it does not answer.\n")
        tomcatto.end(signal.SIGKILL)
        # A command that writes or downloads holds the lock without a socket.
        with open(os.path.join(os.path.dirname(tomcatto.defaults_path), "lock"), "wb") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            tomcatto.start(wait=False)
            tomcatto.wait_for(lambda: "starts when it is done" in tomcatto.output())
        tomcatto.wait_for(lambda: tomcatto.run("status").returncode == 0)

    def expect_of_one_that_ends(self, work, *command):
        """Runs a command while an application reads its request, does the work and hangs up; then it is gone."""
        ready = threading.Event()

        def end_after_work():
            with open(os.path.join(os.path.dirname(self.tomcatto.defaults_path), "lock"), "wb") as lock, \
                    socket.socket(socket.AF_UNIX) as listener:
                fcntl.flock(lock, fcntl.LOCK_EX)
                listener.bind(self.tomcatto.socket_path)
                listener.listen()
                ready.set()
                connection = listener.accept()[0]
                arguments = json.loads(connection.recv(65536))["arguments"]
                with sqlite3.connect(self.tomcatto.store_path) as store:
                    work(store, arguments)
                os.remove(self.tomcatto.socket_path)
                connection.close()
                time.sleep(0.3)

        ending = threading.Thread(target=end_after_work)
        ending.start()
        self.assertTrue(ready.wait(60))
        self.expect(0, *command)
        ending.join()

    def test_nothing_is_done_twice_though_the_application_ends(self):
        video = os.path.join(os.path.dirname(PROGRAM), "BundledVideos", "2-the-fish.mp4")
        identifier = self.expect(0, "videos", "add", video).stdout.strip()

        def add(store, _):
            store.execute("update UserVideo set addedAt = ?", (time.time(),))

        def remove(store, _):
            store.execute("delete from UserVideo where id = ?", (identifier,))

        for work, command, count in ((add, ("add", video), 1), (lambda *_: None, ("add", video), 2),
                                     (remove, ("remove", identifier), 1)):
            self.expect_of_one_that_ends(work, "videos", *command)
            self.assertEqual(len(self.expect(0, "videos", "list").stdout.splitlines()), count, command)

        def add_phase(store, arguments):
            start = 1767605400  # 2026-01-05T09:30
            store.execute("insert into PomodoroSessionRecord values (?, 'work', ?, ?, 1500, 1500, 0, 1, 0)",
                          (arguments["id"], start, start + 1500))

        self.expect_of_one_that_ends(add_phase, "history", "add", "2026-01-05T09:30", "25")
        [phase] = self.phases()
        self.expect_of_one_that_ends(lambda store, _: store.execute("delete from PomodoroSessionRecord"),
                                     "history", "remove", phase["id"])
        self.assertEqual(self.phases(), [])

    def phases(self):
        return json.loads(self.expect(0, "history", "list", "--range", "allTime", "--json").stdout)

    def test_sets_the_history_right_with_and_without_an_application(self):
        one, other = (os.path.join(self.tomcatto.folder, name) for name in ("one.csv", "other.csv"))
        for runs in (False, True):
            if runs:
                self.tomcatto.start()
            added = self.expect(0, "history", "add", "2026-01-05T09:30", "25").stdout.strip()
            self.assertIn("Focus, 2026-01-05 09:30 – 09:55, is there already",
                          self.expect(1, "history", "add", "2026-01-05T09:54", "25").stderr)
            self.expect(0, "history", "add", "2026-01-05T09:55", "30")
            self.assertEqual([(phase["startedAt"], phase["actualSeconds"]) for phase in self.phases()],
                             [("2026-01-05T09:55:00Z", 1800), ("2026-01-05T09:30:00Z", 1500)])
            self.expect(0, "export", "--range", "allTime", one)
            for status in (0, 1):
                self.expect(status, "history", "remove", added)
            self.assertEqual(self.expect(0, "history", "import", one).stdout, "1 phase added, 1 there already.\n")
            self.expect(0, "export", "--range", "allTime", other)
            with open(one, encoding="utf-8") as first, open(other, "a+", encoding="utf-8") as second:
                second.seek(0)
                self.assertEqual(first.read(), second.read())
                second.write("Work,25:00\n")
            self.assertIn("line 4", self.expect(4, "history", "import", other).stderr)
            for phase in self.phases():
                self.expect(0, "history", "remove", phase["id"])
        read_end, write_end = os.pipe()
        os.close(read_end)
        unread = subprocess.run([PROGRAM, "export", "-"], env=self.tomcatto.environment, stdout=write_end,
                                stderr=subprocess.PIPE, text=True, timeout=60, check=False)
        os.close(write_end)
        self.assertEqual(unread.returncode, 4)
        self.assertIn("closed before the end", unread.stderr)

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

    def in_terminal(self, *command):
        """Starts a program in a terminal of its own; gives its process, the terminal, and a wait for what it shows."""
        process, terminal = pty.fork()
        if process == 0:
            os.execvpe(command[0], command, self.tomcatto.environment)
        self.addCleanup(os.close, terminal)

        seen = bytearray()

        def read_until(text):
            while text not in seen:
                self.assertTrue(select.select([terminal], [], [], 60)[0], f"no {text} in {seen}")
                seen.extend(os.read(terminal, 4096))
            del seen[:seen.index(text) + len(text)]

        return process, terminal, read_until

    def test_keys_of_the_terminal(self):
        process, terminal, read_until = self.in_terminal(PROGRAM, "-workDurationSeconds", "100")
        read_until(b"Idle")
        for key, shown in ((b" ", b"01:40"), (b" ", b"paused"), (b"e", b"06:"), (b"s", b"Short break"), (b"r", b"Idle")):
            os.write(terminal, key)
            read_until(shown)
        os.write(terminal, b" ")
        read_until(b"Focus")
        os.write(terminal, b"q")
        self.assertEqual(os.waitpid(process, 0)[1], 0)
        self.assertEqual([row[0] for row in self.tomcatto.records()], ["work", "shortBreak", "work"])

    def test_stopped_continued_in_the_background_and_brought_back(self):
        shell, terminal, read_until = self.in_terminal("bash", "--norc", "--noprofile", "--noediting", "-i")

        def say(text):
            os.write(terminal, text)

        say(f"PS1=ready:; '{PROGRAM}' -workDurationSeconds 100 &\n".encode())
        self.tomcatto.wait_for(lambda: self.tomcatto.run("status").returncode == 0)
        say(b"fg\n")
        read_until(b"Idle")
        say(b"\x1a")
        read_until(b"Stopped")
        read_until(b"ready:")
        say(b"bg\n")
        self.tomcatto.wait_for(lambda: self.tomcatto.run("start").returncode == 0)
        say(b"echo still $((40 + 2))\n")
        read_until(b"still 42")
        say(b"fg\n")
        # Brought back it draws its line, and keys reach it again without a line feed.
        read_until(b"01:")
        say(b" ")
        read_until(b"paused")
        self.assertTrue(self.tomcatto.status()["isPaused"])
        say(b"q")
        read_until(b"ready:")
        say(b"stty -a; exit\n")
        # The terminal is as it was.
        read_until(b" icanon")
        os.waitpid(shell, 0)

    def test_a_store_that_cannot_be_opened_ends_with_its_message(self):
        os.makedirs(os.path.dirname(self.tomcatto.store_path))
        with open(self.tomcatto.store_path, "wb") as store:
            store.write(b"this is no database " * 100)
        for arguments in ((), ("stats",)):
            result = self.expect(4, *arguments)
            self.assertIn("Unrecoverable Core Data error: ", result.stderr)
            self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
        with open(self.tomcatto.store_path, "rb") as store:
            self.assertTrue(store.read().startswith(b"this is no database"), "nothing is overwritten")


if __name__ == "__main__":
    unittest.main()
