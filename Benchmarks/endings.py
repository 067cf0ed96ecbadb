"""Measures how a break on three screens ends, for processes.py. Linux only."""

import statistics
import subprocess
import threading
import time

from desktop_session import PICTURE, ask, film
from figures import row
from screen import HEIGHT, WIDTH, wait_until

SCREENS = 3
ENDINGS = 7
# Long after the last of what an ended video still does.
WATCHED_SECONDS = 1.5


def split_screen(session):
    """Makes three screens side by side of the one there is."""
    width = WIDTH // SCREENS
    for index in range(SCREENS):
        place = f"{width}/170x{HEIGHT}/280+{index * width}+0"
        subprocess.run(["xrandr", "--setmonitor", f"screen{index}", place, "none" if index else "screen"], check=True,
                       env=session.places.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Answers:
    """How long the main thread takes to answer, asked again and again within the `with` block."""

    def __init__(self, session):
        self.session, self.longest, self.is_over = session, 0.0, False

    def __enter__(self):
        self.thread = threading.Thread(target=self.watch)
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.is_over = True
        self.thread.join()

    def watch(self):
        while not self.is_over:
            begin = time.perf_counter()
            ask(self.session.places, "status")
            self.longest = max(self.longest, time.perf_counter() - begin)
            time.sleep(0.003)


def seconds_to_free(session, keys):
    """From Esc until no screen shows the break, and the longest that the main thread let somebody wait meanwhile."""
    width = WIDTH // SCREENS
    parts = [(index * width, PICTURE[1], (index + 1) * width, PICTURE[3]) for index in range(SCREENS)]
    ask(session.places, "skip")
    if wait_until(lambda: all(film(session.display, part) for part in parts), time.perf_counter()) is None:
        raise SystemExit("Error: the break does not show on three screens")
    time.sleep(2)
    with Answers(session) as answers:
        begin = time.perf_counter()
        keys.stdin.write(b"key Escape\n")
        keys.stdin.flush()
        free = wait_until(lambda: not any(film(session.display, part) for part in parts), begin)
        time.sleep(WATCHED_SECONDS)
    if free is None:
        raise SystemExit("Error: Esc does not end the break")
    return free, answers.longest


def ending(session):
    """Rows of how soon three screens are free again."""
    split_screen(session)
    session.play_own_clip()
    with session.run("-workDurationSeconds", 1000, "-shortBreakDurationSeconds", 600, "-longBreakDurationSeconds", 600):
        # Ready before it is needed, so that its start is not timed.
        keys = subprocess.Popen(["xdotool", "-"], env=session.places.environment, stdin=subprocess.PIPE)
        ask(session.places, "start")
        free, longest = zip(*(seconds_to_free(session, keys) for _ in range(ENDINGS)))
        keys.stdin.close()
        keys.wait()
    yield row(f"Esc to a free screen, {SCREENS} screens", statistics.median(free) * 1e3, "ms", 100)
    yield row("main thread's longest pause meanwhile", statistics.median(longest) * 1e3, "ms", 50)
