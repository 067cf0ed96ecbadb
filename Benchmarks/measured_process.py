"""Runs programs in places of their own and measures them through /proc. Linux only."""

import os
import pty
import shutil
import statistics
import subprocess
import tempfile
import threading
import time
from typing import NamedTuple

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:dir={folder}</listen>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>
"""


class Memory(NamedTuple):
    """Megabytes (10⁶ bytes) of a process."""

    # Pages that no file on disk holds and no other process has, in memory or in the swap: gone for everybody else.
    private: float
    # Those, and of the pages that it shares, such as code in the system's cache of files, its share.
    proportional: float


class Places:
    """A home, a runtime folder and a bus of their own, gone with the `with` block."""

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="tom")
        self.environment = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "LC_", "DBUS_"))}
        for name in ("CONFIG", "DATA", "CACHE"):
            self.environment[f"XDG_{name}_HOME"] = os.path.join(self.folder, name.lower())
        runtime = os.path.join(self.folder, "run")
        os.mkdir(runtime, 0o700)
        self.socket_path = os.path.join(runtime, "studio.quillbay.Tomcatto.sock")
        configuration = os.path.join(self.folder, "bus.conf")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(BUS_CONFIGURATION.format(folder=runtime))
        # Both buses, so that the program waits on what it waits on at home.
        self.bus = subprocess.Popen(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address"],
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        address = self.bus.stdout.readline().strip()
        self.environment.update(HOME=self.folder, XDG_RUNTIME_DIR=runtime, LANG="C.UTF-8", TZ="Europe/Berlin",
                                DBUS_SYSTEM_BUS_ADDRESS=address, DBUS_SESSION_BUS_ADDRESS=address)
        self.environment.pop("DISPLAY", None)
        self.environment.pop("WAYLAND_DISPLAY", None)
        return self

    def __exit__(self, *_):
        self.bus.terminate()
        self.bus.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, *command, **environment):
        """Runs a command to its end, its output to nowhere: seconds on the clock and of the processor."""
        begin = time.perf_counter()
        process = subprocess.Popen(command, env=self.environment | environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, close_fds=False)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - begin
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            raise SystemExit(f"Error: {' '.join(command)} ended with {process.returncode}")
        return seconds, usage.ru_utime + usage.ru_stime

    def alternate(self, count, *commands):
        """Runs the commands in turn, so that the machine's moods meet all alike: for each the median of both times."""
        taken = [[self.run(*command) for command in commands] for _ in range(count)]
        return [tuple(statistics.median(run[index][kind] for run in taken) for kind in (0, 1)) for index in range(len(commands))]


class Running:
    """A program that stays, ended with the `with` block. With a terminal of its own when asked."""

    def __init__(self, places, command, has_terminal=False, ready=None):
        self.places, self.command, self.has_terminal, self.ready = places, command, has_terminal, ready

    def __enter__(self):
        streams = [subprocess.DEVNULL] * 3
        if self.has_terminal:
            self.terminal, inner = pty.openpty()
            streams = [inner] * 3
        begin = time.perf_counter()
        self.process = subprocess.Popen(self.command, env=self.places.environment, stdin=streams[0], stdout=streams[1],
                                        stderr=streams[2], start_new_session=True, close_fds=False,
                                        preexec_fn=self.take_terminal if self.has_terminal else None)
        if self.has_terminal:
            os.close(inner)
            threading.Thread(target=self.drain, daemon=True).start()
        while self.ready and not os.path.exists(self.ready):
            if self.process.poll() is not None or time.perf_counter() > begin + 30:
                raise SystemExit(f"Error: {' '.join(self.command)} does not start")
            time.sleep(0.001)
        self.seconds_to_ready = time.perf_counter() - begin
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        if self.has_terminal:
            os.close(self.terminal)

    @staticmethod
    def take_terminal():
        import fcntl
        import termios
        fcntl.ioctl(0, termios.TIOCSCTTY, 0)

    def drain(self):
        try:
            while os.read(self.terminal, 65536):
                pass
        except OSError:
            pass

    def processes(self):
        """Itself, and the programs that it has started and that run now, with theirs."""
        parents = {}
        for process in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{process}/stat", encoding="utf-8", errors="replace") as file:
                    parents[int(process)] = int(file.read().rpartition(")")[2].split()[1])
            except (FileNotFoundError, ProcessLookupError):
                pass  # One that has just ended.
        found = [self.process.pid]
        for known in found:
            found += [process for process, parent in parents.items() if parent == known]
        return found

    def processor_seconds(self):
        """Of all threads of its processes, those that have ended as well: the kernel's clock of a process, by its number."""
        return sum(time.clock_gettime(~process << 3 | 2) for process in self.processes())

    def sleeps(self):
        """For each thread of its processes how often it has gone to sleep by itself."""
        counted = {}
        for process in self.processes():
            folder = f"/proc/{process}/task"
            for task in os.listdir(folder):
                try:
                    with open(f"{folder}/{task}/status", encoding="ascii") as file:
                        counted[task] = next(int(line.split()[1]) for line in file
                                             if line.startswith("voluntary_ctxt_switches"))
                except FileNotFoundError:
                    pass  # A thread that has just ended.
        return counted

    def wakeups_a_second(self, seconds):
        before = self.sleeps()
        time.sleep(seconds)
        return sum(count - before.get(task, 0) for task, count in self.sleeps().items()) / seconds

    def megabytes(self, *kinds):
        """Of its processes together, in units of 10⁶ bytes, by the kernel's names."""
        kilobytes = 0
        for process in self.processes():
            try:
                with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
                    kilobytes += sum(int(line.split()[1]) for line in file if line.split(":")[0] in kinds)
            except (FileNotFoundError, ProcessLookupError):
                pass  # One that is just ending.
        return kilobytes * 1024 / 1e6

    def memory(self):
        """What it costs the machine, and how it is usually told."""
        return Memory(self.megabytes("Private_Dirty", "Swap"), self.megabytes("Pss"))

    def threads(self):
        return sum(len(os.listdir(f"/proc/{process}/task")) for process in self.processes())

    def descriptors(self):
        return sum(len(os.listdir(f"/proc/{process}/fd")) for process in self.processes())
