"""A display of its own whose picture is read as the server draws it, without being a client of it. Linux only."""

import mmap
import os
import shutil
import struct
import subprocess
import tempfile
import time

WIDTH, HEIGHT = 1920, 1080
# How often the picture is looked at, in seconds: a good part of a millisecond and little processor time.
LOOK_SECONDS = 0.002


class Display:
    """An X server with a window manager and a tray; `environment` names it within the `with` block.

    The server keeps its picture in a file, so that looking at it costs neither the server nor the program anything.
    """

    def __init__(self, has_tray=True):
        self.has_tray = has_tray

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="tomscreen", dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
        read, write = os.pipe()
        # It does not begin anew when its last client goes, because it would refuse others meanwhile.
        screen = ["-noreset", "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", self.folder]
        self.helpers = [subprocess.Popen(["Xvfb", "-displayfd", str(write), *screen], pass_fds=[write],
                                         stderr=subprocess.DEVNULL)]
        os.close(write)
        with os.fdopen(read) as display:
            name = ":" + display.readline().strip()
        if name == ":":
            raise SystemExit("Error: Xvfb does not start")
        # Drawn by the processor everywhere alike, for a machine's graphics card would not be asked here anyway.
        self.environment = {"DISPLAY": name, "QT_QPA_PLATFORM": "xcb"}
        for program in (["openbox"], ["trayer", "--edge", "top", "--align", "right"])[:2 if self.has_tray else 1]:
            self.helpers.append(subprocess.Popen(program, env=os.environ | self.environment,
                                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        self.map_picture()
        time.sleep(1)
        return self

    def map_picture(self):
        with open(os.path.join(self.folder, "Xvfb_screen0"), "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        header = struct.unpack(">25I", self.memory[:100])
        depth, self.row_bytes, colours = header[11], header[12], header[19]
        if depth != 32:
            raise SystemExit(f"Error: pixels of {depth} bits cannot be read")
        self.start = header[0] + colours * 12

    def __exit__(self, *_):
        self.memory.close()
        for helper in reversed(self.helpers):
            helper.terminate()
            helper.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def pixels(self, left, top, right, bottom, step=1):
        """The bytes blue, green, red, unused of the pixels of every step-th row of a rectangle."""
        rows = (self.start + y * self.row_bytes for y in range(top, bottom, step))
        return b"".join(self.memory[row + left * 4:row + right * 4] for row in rows)

    def processor_seconds(self):
        """What the server itself has taken."""
        with open(f"/proc/{self.helpers[0].pid}/schedstat", encoding="ascii") as file:
            return int(file.read().split()[0]) / 1e9


def wait_until(condition, since, limit=10.0):
    """Seconds from `since`, of time.perf_counter(), until the condition holds for the first time; none after the limit."""
    while not condition():
        if time.perf_counter() - since > limit:
            return None
        time.sleep(LOOK_SECONDS)
    return time.perf_counter() - since


def bright_pixels(pixels):
    """How many are nearly white."""
    return sum(1 for blue, green, red in zip(pixels[0::4], pixels[1::4], pixels[2::4])
               if blue > 220 and green > 220 and red > 220)


def differing(pixels, others):
    """The share of pixels that differ."""
    if pixels == others:
        return 0.0
    one, other = memoryview(pixels).cast("I"), memoryview(others).cast("I")
    return sum(1 for a, b in zip(one, other) if a != b) / max(len(one), 1)
