"""Measures the desktop program on a display of its own, for processes.py. Linux only."""

import os
import shutil
import sqlite3
import statistics
import subprocess
import tempfile
import time

from breaks import kept
from desktop_session import COUNTDOWN, LAUNCH, Session, ask, film
from endings import ending
from figures import memory_rows, resting, row, starts
from measured_process import Places, Running
from screen import HEIGHT, LOOK_SECONDS, WIDTH, Display, bright_pixels, differing, wait_until

HIDDEN_SECONDS = 60
WINDOWS = 5
BREAKS = 5
PLAY_SECONDS = 10
PLAY_ROUNDS = 3
COUNTED_SECONDS = 3
# A phase that the views for its end are made ready in.
WARMED_SECONDS = 4


def seconds_to_paint(session, command, **arguments):
    """From the request until most of what a window shows half a second later stands on the screen."""
    with session.run():
        time.sleep(1)
        everything = (0, 0, WIDTH, HEIGHT, 8)
        before, seen = session.display.pixels(*everything), []
        begin = time.perf_counter()
        ask(session.places, command, **arguments)
        while time.perf_counter() - begin < 1.5:
            picture = session.display.pixels(*everything)
            if not seen or picture != seen[-1][1]:
                seen.append((time.perf_counter() - begin, picture))
            time.sleep(LOOK_SECONDS)
    change = differing(before, seen[-1][1])
    if change < 0.02:
        raise SystemExit(f"Error: {command} does not show")
    return next(seconds for seconds, picture in seen if differing(picture, seen[-1][1]) < change / 10)


def seconds_to_break(session, warmed):
    """From the end of a focus phase, by its time or by a skip, until the time left and the first frame are there."""
    display = session.display
    with session.run("-workDurationSeconds", WARMED_SECONDS if warmed else 1000):
        time.sleep(1)
        begin = time.perf_counter()
        ask(session.places, "start")
        if warmed:
            begin += WARMED_SECONDS
            time.sleep(WARMED_SECONDS - 0.5)
        else:
            time.sleep(2)
            begin = time.perf_counter()
            ask(session.places, "skip")
        countdown = wait_until(lambda: bright_pixels(display.pixels(*COUNTDOWN, 3)) > 50, begin)
        frame = wait_until(lambda: film(display) is not None, begin)
    if countdown is None or frame is None:
        raise SystemExit("Error: the break or its video does not show")
    return countdown, frame


def frames_a_second(display):
    """How many pictures of a film that moves everywhere stand on the screen in a second."""
    seen, last, begin = 0, None, time.perf_counter()
    while time.perf_counter() - begin < COUNTED_SECONDS:
        picture = display.pixels(0, HEIGHT // 2, WIDTH, HEIGHT // 2 + 1)
        seen, last = seen + (last is not None and picture != last), picture
        time.sleep(LOOK_SECONDS)
    return seen / COUNTED_SECONDS


def beside_player(build, display, film, rounds=1):
    """What a second of a film takes of the overlay and of a plain player: its processor time, the server's, and frames."""
    taken = {"overlay": [], "player": []}
    with Places() as places:
        session = Session(build, display, places)
        session.clip = shutil.copy(film, places.folder)
        session.play_own_clip()
        player = ["mpv", "--no-config", "--really-quiet", "--vo=x11", "--fs", "--no-audio", "--loop-file=inf", "--no-osc",
                  "--no-input-default-bindings", session.clip]
        for name in [*taken] * rounds:
            running = session.run("-workDurationSeconds", 1000) if name == "overlay" else Running(places, player)
            with running:
                if name == "overlay":
                    ask(places, "start")
                    ask(places, "skip")
                time.sleep(3)
                before = (running.processor_seconds(), display.processor_seconds())
                time.sleep(PLAY_SECONDS)
                after = (running.processor_seconds(), display.processor_seconds())
                seconds = [(b - a) / PLAY_SECONDS for a, b in zip(before, after)]
                taken[name].append([*seconds, frames_a_second(display)])
    return [[statistics.median(column) for column in zip(*taken[name])] for name in taken]


def show_everything(session):
    """A panel and a break with its video, seen and gone again."""
    keys = ["xdotool", "key", "Escape"]
    everything = (0, 0, WIDTH, HEIGHT, 8)
    before = session.display.pixels(*everything)
    ask(session.places, "panel")
    if wait_until(lambda: differing(before, session.display.pixels(*everything)) > 0.02, time.perf_counter()) is None:
        raise SystemExit("Error: the panel does not show")
    time.sleep(1)
    subprocess.run(keys, env=session.places.environment, check=True)
    time.sleep(1)
    ask(session.places, "skip")
    if wait_until(lambda: film(session.display) is not None, time.perf_counter()) is None:
        raise SystemExit("Error: the break or its video does not show")
    time.sleep(5)
    subprocess.run(keys, env=session.places.environment, check=True)
    if wait_until(lambda: film(session.display) is None, time.perf_counter()) is None:
        raise SystemExit("Error: Esc does not end the break")


def hidden(session):
    """Rows of the program without a window: its start, its memory and its wake-ups."""
    tray = str(session.build / "bare-tray")
    environment = session.display.environment
    with Running(session.places, [tray]) as running:
        memory, wakeups = resting(running, HIDDEN_SECONDS)
    plain_start = starts([tray], environment=environment)
    start = starts([session.command, *LAUNCH], waits_for_socket=True, environment=environment)
    yield row("start of the desktop program to its status item, processor time", start, "ms", 60,
              ("bare tray program", plain_start))
    with session.run("-workDurationSeconds", 1000) as running:
        for state, limit, settle in (("idle", 0, HIDDEN_SECONDS), ("running", 2.2, 5)):
            if state == "running":
                ask(session.places, "start")
            measured, woken = resting(running, settle)
            yield from memory_rows(f"hidden desktop program, {state}", measured, (5, 20), "bare tray program", memory)
            yield row(f"hidden desktop program, {state}: wake-ups", woken, "a second", limit,
                      ("bare tray program", wakeups))
        show_everything(session)
        again, _ = resting(running, HIDDEN_SECONDS)
        yield from memory_rows("the same after a panel and a break", again, (12, 36), "before them", measured)


def shown(session):
    """Rows of what shows on the screen, and how soon."""
    panels = [seconds_to_paint(session, "panel") * 1e3 for _ in range(WINDOWS)]
    yield row("the panel's first paint, from the request", statistics.median(panels), "ms", 200)
    session.play_own_clip()
    for warmed, words, limits in ((True, "the end of a focus phase", (150, 500)),
                                  (False, "a skip right after the start", (400, 800))):
        taken = [seconds_to_break(session, warmed) for _ in range(BREAKS)]
        for what, column, limit in zip(("a break's countdown", "a break's first video frame"), zip(*taken), limits):
            yield row(f"{what}, after {words}", statistics.median(column) * 1e3, "ms", limit)


def cut_to_ten_years(store):
    """Leaves a history its newest ten years."""
    with sqlite3.connect(store) as history:
        history.execute("DELETE FROM PomodoroSessionRecord WHERE startedAt < (SELECT max(startedAt) FROM PomodoroSessionRecord)"
                        " - 3652 * 86400")
    history.close()


def statistics_page(build, _):
    """How soon the page of statistics stands there, with a history and without one."""
    taken = []
    with Display() as display:
        for has_history in (True, False):
            with Places() as places:
                session = Session(build, display, places)
                if has_history:
                    data = shutil.copytree(build / "histories" / "1000000", places.environment["XDG_DATA_HOME"])
                    cut_to_ten_years(os.path.join(data, "Tomcatto", "Tomcatto.sqlite"))
                paints = [seconds_to_paint(session, "window", page="statistics") * 1e3 for _ in range(WINDOWS)]
                taken.append(statistics.median(paints))
    yield row("the statistics page's first paint over ten years, from the request", taken[0], "ms", 200,
              ("without a history", taken[1]))


def moving_film(folder):
    """A film of which no part stands still: a flight into the Mandelbrot set, by ffmpeg."""
    film = os.path.join(folder, "moving.mp4")
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"mandelbrot=size={WIDTH}x{HEIGHT}:rate=30:start_scale=0.2",
                    "-t", "6", "-pix_fmt", "yuv420p", "-preset", "veryfast", film], check=True)
    return film


def playing(build, _):
    """Rows of what a video costs: the bundled ones together, and one that moves everywhere."""
    with Display() as display, tempfile.TemporaryDirectory() as folder:
        clips = [beside_player(build, display, clip) for clip in sorted((build / "BundledVideos").glob("*.mp4"))]
        (own, own_server, _), (player, player_server, _) = ([statistics.mean(column) for column in zip(*kind)]
                                                            for kind in zip(*clips))
        yield row("processor time of a break's video, per second", own * 1e3, "ms", 0.6, ("`mpv`", player * 1e3),
                  "at most 0.6 × `mpv`", True)
        yield row("the display server's for it, per second", own_server * 1e3, "ms",
                  yardstick=("`mpv`", player_server * 1e3))
        (own, _, frames), (player, _, player_frames) = beside_player(build, display, moving_film(folder), PLAY_ROUNDS)
        yield row("processor time of a film that moves everywhere, per second", own * 1e3, "ms", 1,
                  ("`mpv`", player * 1e3), "at most 1 × `mpv`", True)
        yield row("its frames on the screen", frames, "a second", yardstick=("`mpv`", player_frames))


def on_display(rows):
    """A measurement of processes.py on a display and in a place of its own."""
    def measure(build, _):
        with Display() as display, Places() as places:
            yield from rows(Session(build, display, places))
    return measure


MEASUREMENTS = (*map(on_display, (hidden, kept, shown, ending)), statistics_page, playing)
