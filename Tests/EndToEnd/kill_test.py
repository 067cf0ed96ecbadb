#!/usr/bin/python3
"""Kills the program at random moments of short phases: nothing is lost, nothing recorded twice, no file corrupt."""

import contextlib
import json
import os
import random
import signal
import sqlite3
import subprocess
import time
import unittest

from tomcatto_process import PROGRAM, Tomcatto

KILLS = int(os.environ.get("TOMCATTO_KILLS", "20"))
SEED = int(os.environ.get("TOMCATTO_SEED", "0")) or random.SystemRandom().randrange(1, 1 << 31)
ARGUMENTS = ("-workDurationSeconds", "1", "-shortBreakDurationSeconds", "1", "-longBreakDurationSeconds", "1")


def expected_recovery(marker, now):
    """The record that the rules of recovery make of a marker: phase, seconds, whether completed."""
    paused = max(marker.get("pausedSeconds", 0), 0)
    seen = min(marker.get("pausedAt", marker.get("lastActiveAt", now)), now)
    reached = "reachedPlanAt" in marker
    cap = marker["plannedDurationSeconds"] + (3600 if reached else 0)
    return marker["phase"], int(min(max(seen - marker["startedAt"] - paused, 0), cap)), reached


class KillTest(unittest.TestCase):
    def test_killed_at_random_moments(self):
        print(f"TOMCATTO_SEED={SEED}, {KILLS} kills", flush=True)
        random_moments = random.Random(SEED)
        tomcatto = Tomcatto()
        self.addCleanup(tomcatto.close)
        for round_number in range(KILLS):
            with self.subTest(round=round_number, seed=SEED):
                self.kill_once(tomcatto, random_moments)

    def kill_once(self, tomcatto, random_moments):
        before = len(tomcatto.records())
        tomcatto.start(*ARGUMENTS)
        before_start = time.time()
        self.assertEqual(tomcatto.run("start").returncode, 0)
        if random_moments.random() < 0.3:
            tomcatto.run(random_moments.choice(["pause", "skip", "extend"]))
        time.sleep(random_moments.uniform(0, 3.5))
        killed = time.time()
        tomcatto.end(signal.SIGKILL)

        marker = tomcatto.defaults().get("inFlightSession")
        with sqlite3.connect(tomcatto.store_path) as store:
            self.assertEqual(store.execute("pragma integrity_check").fetchone()[0], "ok")
        left = tomcatto.records("id, startedAt, endedAt, phase")[before:]
        self.assertTrue(all(row[1] >= before_start - 0.1 for row in left))
        # The phases follow each other without a gap, up to the marked one: killed between a record and the next marker,
        # the program leaves the marker of a phase that is recorded.
        starts = [row[1] for row in left]
        if marker and marker["startedAt"] in starts:
            self.assertEqual(marker["startedAt"], starts[-1], "the marker of an earlier phase")
            marker = None
        for row, following in zip(left, starts[1:] + ([marker["startedAt"]] if marker else [])):
            self.assertLess(abs(following - row[2]), 0.1, "a phase is missing in between")
        last_known = marker["startedAt"] if marker else (left[-1][2] if left else killed)
        plan = marker["plannedDurationSeconds"] if marker and "pausedAt" not in marker else 10_000
        # The next tick ends a phase; a busy machine takes its time with both.
        self.assertGreater(last_known + plan + 2.0, killed, "a phase that ended is missing")

        restarted = time.time()
        tomcatto.start(*ARGUMENTS)
        expected = before + len(left) + (1 if marker else 0)
        tomcatto.wait_for(lambda: len(tomcatto.records()) >= expected)
        records = tomcatto.records("id, startedAt, phase, actualDurationSeconds, wasCompleted")
        self.assertEqual(len(records), expected)
        self.assertEqual(len({row[1] for row in records}), len(records), "a phase is recorded twice")
        if marker:
            phase, seconds, completed = expected_recovery(marker, restarted)
            self.assertEqual((records[-1][2], bool(records[-1][4])), (phase, completed), json.dumps(marker))
            self.assertAlmostEqual(records[-1][3], seconds, delta=1)
            self.assertEqual(records[-1][1], marker["startedAt"])
        self.assertEqual(tomcatto.status()["phase"], "idle")
        self.assertNotIn("inFlightSession", tomcatto.defaults())
        self.assertEqual(tomcatto.end(), 0)

    def test_killed_while_restoring(self):
        random_moments = random.Random(SEED)
        tomcatto = Tomcatto()
        self.addCleanup(tomcatto.close)
        tomcatto.run("videos", "remove", "11111111-1111-1111-1111-111111111111")  # makes an empty store
        copies = [os.path.join(tomcatto.folder, name) for name in ("one", "two")]
        for copy in copies:
            self.add_phases(tomcatto.store_path, 1000)
            self.assertEqual(tomcatto.run("history", "backup", copy).returncode, 0)
        began = time.monotonic()
        self.assertEqual(tomcatto.run("history", "restore", copies[0]).returncode, 0)
        self.usual_seconds = time.monotonic() - began
        for round_number in range(KILLS // 2):
            with self.subTest(round=round_number, seed=SEED):
                self.kill_restoring(tomcatto, random_moments, copies[round_number % 2], round_number % 4 < 2)

    def add_phases(self, path, count):
        # One that is open elsewhere is not replaced.
        with contextlib.closing(sqlite3.connect(path)) as store, store:
            store.executemany("insert into PomodoroSessionRecord (phase, startedAt) values ('work', ?)", [(1,)] * count)

    def phases(self, path):
        with contextlib.closing(sqlite3.connect(path)) as store:
            self.assertEqual(store.execute("pragma integrity_check").fetchone()[0], "ok")
            return store.execute("select count(*) from PomodoroSessionRecord where startedAt = 1").fetchone()[0]

    def kill_restoring(self, tomcatto, random_moments, copy, is_running):
        if is_running:
            tomcatto.start()
        # Beside a running application this stays in the log, which the killed one leaves behind.
        self.add_phases(tomcatto.store_path, 1)
        before = self.phases(tomcatto.store_path)
        command = subprocess.Popen([PROGRAM, "history", "restore", copy], env=tomcatto.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        folder = os.path.dirname(tomcatto.store_path)
        names = set(os.listdir(folder))
        deadline = time.monotonic() + random_moments.uniform(0.3, 1.5) * self.usual_seconds
        # At any moment, or in the middle of the exchange, which begins with the name that the earlier store is kept by.
        while time.monotonic() < deadline and command.poll() is None and not any(
                name.startswith("Tomcatto 2") for name in set(os.listdir(folder)) - names):
            time.sleep(random_moments.choice((0, 0.002)))
        (tomcatto.process if is_running else command).kill()
        command.wait(timeout=60)
        if is_running:
            tomcatto.process.wait(timeout=60)
        after = self.phases(tomcatto.store_path)
        if after != before:
            self.assertEqual(after, self.phases(copy))
            kept = [os.path.join(folder, name) for name in os.listdir(folder) if name.startswith("Tomcatto 2")]
            self.assertIn(before, [self.phases(path) for path in kept])
        self.assertEqual(tomcatto.run("stats").returncode, 0)


if __name__ == "__main__":
    unittest.main()
