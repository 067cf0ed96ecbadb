"""Runs the built program in places of its own and reads what it leaves on disk."""

import json
import os
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PROGRAM = os.environ.get("TOMCATTO_PROGRAM", os.path.join(ROOT, "build", "debug", "tomcatto"))
FIELDS = "phase, plannedDurationSeconds, actualDurationSeconds, cycleIndex, wasCompleted, wasSkipped"


class Tomcatto:
    """One user's Tomcatto: home, settings, store and socket in a folder that goes with it."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="tom")
        self.environment = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "LC_", "DBUS_"))}
        for name in ("CONFIG", "DATA", "CACHE"):
            self.environment[f"XDG_{name}_HOME"] = os.path.join(self.folder, name.lower())
        runtime = os.path.join(self.folder, "run")
        os.mkdir(runtime, 0o700)
        self.environment.update(HOME=self.folder, XDG_RUNTIME_DIR=runtime, LANG="C.UTF-8", TZ="UTC",
                                DBUS_SYSTEM_BUS_ADDRESS="disabled:", DBUS_SESSION_BUS_ADDRESS="disabled:")
        self.environment.pop("DISPLAY", None)
        self.environment.pop("WAYLAND_DISPLAY", None)
        self.defaults_path = os.path.join(self.folder, "config", "studio.quillbay.Tomcatto", "defaults.json")
        self.store_path = os.path.join(self.folder, "data", "Tomcatto", "Tomcatto.sqlite")
        self.socket_path = os.path.join(runtime, "studio.quillbay.Tomcatto.sock")
        self.process = None
        self.output_path = os.path.join(self.folder, "output")

    def close(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *arguments, wait=True, program=PROGRAM):
        with open(self.output_path, "ab") as output:
            self.process = subprocess.Popen([program, *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                                            stdout=output, stderr=output)
        if wait:
            self.wait_for(lambda: self.run("status").returncode == 0)
        return self.process

    def wait_for(self, condition, seconds=60):
        deadline = time.monotonic() + seconds
        while not condition():
            if time.monotonic() > deadline:
                raise AssertionError("it did not happen in time; the program printed:\n" + self.output())
            time.sleep(0.02)

    def run(self, *arguments, timeout=60):
        return subprocess.run([PROGRAM, *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=timeout, check=False)

    def status(self):
        return json.loads(self.run("status", "--json").stdout)

    def end(self, with_signal=signal.SIGTERM):
        self.process.send_signal(with_signal)
        return self.process.wait(timeout=60)

    def output(self):
        if not os.path.exists(self.output_path):
            return "nothing, for it was not started"
        with open(self.output_path, encoding="utf-8", errors="replace") as output:
            return output.read()

    def defaults(self):
        with open(self.defaults_path, encoding="utf-8") as file:
            return json.load(file)

    def records(self, fields=FIELDS):
        if not os.path.exists(self.store_path):
            return []
        with sqlite3.connect(self.store_path) as store:
            if not store.execute("select 1 from sqlite_master where name = 'PomodoroSessionRecord'").fetchone():
                return []
            return store.execute(f"select {fields} from PomodoroSessionRecord order by rowid").fetchall()
