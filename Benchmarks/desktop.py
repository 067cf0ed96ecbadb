"""Measures the desktop program on a display of its own, for processes.py. Linux only."""

import statistics
import time

from breaks import kept
from desktop_session import COUNTDOWN, LAUNCH, Session, ask, film
from figures import resting, row, starts
from measured_process import Places, Running
from screen import HEIGHT, LOOK_SECONDS, WIDTH, Display, bright_pixels, differing, wait_until

HIDDEN_SECONDS = 60
PANELS = 5
BREAKS = 5
PLAY_SECONDS = 10
PLAY_ROUNDS = 3
# A phase that the views for its end are made ready in.
WARMED_SECONDS = 4


def seconds_to_panel(session):
    """From the request until most of what the panel shows half a second later stands on the screen."""
    with session.run():
        time.sleep(1)
        everything = (0, 0, WIDTH, HEIGHT, 8)
        before, seen = session.display.pixels(*everything), []
        begin = time.perf_counter()
        ask(session.places, "panel")
        while time.perf_counter() - begin < 1.5:
            picture = session.display.pixels(*everything)
            if not seen or picture != seen[-1][1]:
                seen.append((time.perf_counter() - begin, picture))
            time.sleep(LOOK_SECONDS)
    change = differing(before, seen[-1][1])
    if change < 0.02:
        raise SystemExit("Error: the panel does not show")
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


def processor_time_beside_player(session):
    """Processor seconds a second that the overlay takes, and a plain player of the same clip; with each the server's."""
    player = ["mpv", "--no-config", "--really-quiet", "--vo=x11", "--fs", "--no-audio", "--loop-file=inf", "--no-osc",
              "--no-input-default-bindings", session.clip]
    taken = {"overlay": [], "player": []}
    for _ in range(PLAY_ROUNDS):
        for name in taken:
            running = session.run("-workDurationSeconds", 1000) if name == "overlay" else Running(session.places, player)
            with running:
                if name == "overlay":
                    ask(session.places, "start")
                    ask(session.places, "skip")
                time.sleep(3)
                before = (running.processor_seconds(), session.display.processor_seconds())
                time.sleep(PLAY_SECONDS)
                after = (running.processor_seconds(), session.display.processor_seconds())
                taken[name].append([(b - a) / PLAY_SECONDS for a, b in zip(before, after)])
    return {name: [statistics.median(column) for column in zip(*rounds)] for name, rounds in taken.items()}


def hidden(session):
    """Rows of the program without a window: its start, its memory and its wake-ups."""
    tray = str(session.build / "bare-tray")
    environment = session.display.environment
    with Running(session.places, [tray]) as running:
        megabytes, wakeups = resting(running)
    plain_start = starts([tray], environment=environment)
    start = starts([session.command, *LAUNCH], waits_for_socket=True, environment=environment)
    yield row("start of the desktop program to its status item, processor time", start, "ms", 60,
              ("bare tray program", plain_start))
    with session.run("-workDurationSeconds", 1000) as running:
        for state, limit, settle in (("idle", 0, HIDDEN_SECONDS), ("running", 2.2, 5)):
            if state == "running":
                ask(session.places, "start")
            measured, woken = resting(running, settle)
            yield row(f"hidden desktop program, {state}: memory", measured, "MB", 28, ("bare tray program", megabytes))
            yield row(f"hidden desktop program, {state}: wake-ups", woken, "a second", limit,
                      ("bare tray program", wakeups))


def shown(session):
    """Rows of what shows on the screen, and how soon."""
    panels = [seconds_to_panel(session) * 1e3 for _ in range(PANELS)]
    yield row("the panel's first paint, from the request", statistics.median(panels), "ms", 200)
    session.play_own_clip()
    for warmed, words, limits in ((True, "the end of a focus phase", (150, 500)),
                                  (False, "a skip right after the start", (400, 800))):
        taken = [seconds_to_break(session, warmed) for _ in range(BREAKS)]
        for what, column, limit in zip(("a break's countdown", "a break's first video frame"), zip(*taken), limits):
            yield row(f"{what}, after {words}", statistics.median(column) * 1e3, "ms", limit)


def playing(session):
    session.play_own_clip()
    taken = processor_time_beside_player(session)
    (own, own_server), (player, player_server) = taken["overlay"], taken["player"]
    yield row("processor time of a break's video, per second", own * 1e3, "ms", 1.2, ("`mpv`", player * 1e3),
              "at most 1.2 × `mpv`", True)
    yield row("the display server's for it, per second", own_server * 1e3, "ms", yardstick=("`mpv`", player_server * 1e3))


def on_display(rows):
    """A measurement of processes.py on a display and in a place of its own."""
    def measure(build, _):
        with Display() as display, Places() as places:
            yield from rows(Session(build, display, places))
    return measure


MEASUREMENTS = tuple(map(on_display, (hidden, kept, shown, playing)))
