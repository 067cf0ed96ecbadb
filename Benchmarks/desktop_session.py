"""The desktop program on a display of its own. Linux only."""

import json
import select
import shutil
import socket

from measured_process import Running
from screen import HEIGHT, WIDTH

# Where a break shows its time left, and a part of the screen where nothing but its mark or video is: left, top, right, bottom.
COUNTDOWN = (WIDTH // 2 - 124, HEIGHT - 190, WIDTH // 2 + 124, HEIGHT - 114)
PICTURE = (0, 250, WIDTH, 750)
# Until what a window took is given back after it, and that has settled.
RELEASE_SECONDS = 15
LAUNCH = ["--background", "-hasCompletedOnboarding", "true", "-autoStartBreaks", "true", "-autoStartFocus", "true",
          "-overflowEnabled", "false", "-soundEnabled", "false"]


def connect(places, **request):
    connection = socket.socket(socket.AF_UNIX)
    connection.connect(places.socket_path)
    connection.sendall(json.dumps(request).encode() + b"\n")
    return connection


def ask(places, command, **arguments):
    """Sends a command over the control socket and returns the message that answers it."""
    with connect(places, command=command, arguments=arguments) as connection:
        answer = json.loads(connection.makefile().readline())
    if answer["status"] != 0:
        raise SystemExit(f"Error: {command}: {answer.get('message', '')}")
    return answer.get("message")


class Followed:
    """The status as the program tells it, one line for each change; ended with the `with` block."""

    def __init__(self, places):
        self.places = places

    def __enter__(self):
        self.connection = connect(self.places, command="status", follow=True)
        self.waiting = b""
        self.phase = None
        return self

    def __exit__(self, *_):
        self.connection.close()

    def read(self, seconds):
        """Takes what has come, for so long when there is nothing yet."""
        if select.select([self.connection], [], [], seconds)[0]:
            self.waiting += self.connection.recv(65536)
        *lines, self.waiting = self.waiting.split(b"\n")
        for line in lines:
            self.phase = json.loads(line)["result"]["phase"]


def film(display, part=PICTURE):
    """What a break leaves to its video of the screen, as bytes; none while there is only the colour of a break's ground."""
    pixels = display.pixels(*part, 25)
    return pixels if len(set(zip(pixels[0::4], pixels[1::4], pixels[2::4]))) > 50 else None


class Session:
    """The programs of one build on one display, in one place."""

    def __init__(self, build, display, places):
        self.build, self.command = build, str(build / "tomcatto-desktop")
        self.display, self.places = display, places
        places.environment.update(display.environment)
        self.clip = shutil.copy(sorted((build / "BundledVideos").glob("*.mp4"))[0], places.folder)

    def play_own_clip(self):
        """From now on breaks play a copy of a bundled video, without the still picture that those show first."""
        with self.run():
            identifier = ask(self.places, "videos", action="add", path=self.clip)
            ask(self.places, "videos", action="select", id=identifier)

    def run(self, *arguments):
        return Running(self.places, [self.command, *LAUNCH, *map(str, arguments)], ready=self.places.socket_path)
