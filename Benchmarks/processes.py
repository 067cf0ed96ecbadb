#!/usr/bin/python3
"""Measures whole processes for ./benchmark: start, memory, wake-ups, commands.

Benchmarks/processes.py --build FOLDER --output FILE

FOLDER holds the programs and the folder "histories" that tomcatto-benchmarks has made. FILE gets a list of objects with
the texts "what", "measured", "budget", "verdict", "yardstick" and "ratio". A further program is one more function in MEASUREMENTS.
"""

import argparse
import json
import pathlib
import statistics
import time

from measured_process import Display, Places, Running

STARTS = 9
COMMANDS = 50
SETTLE_SECONDS = 5
WATCH_SECONDS = 20
LARGEST_HISTORY = 1_000_000
STAMPS = ("SELECT startedAt, actualDurationSeconds FROM PomodoroSessionRecord"
          " WHERE phase = 'work' AND wasCompleted = 1 ORDER BY startedAt")


def row(what, value, unit, limit=None, yardstick=None, limit_text=None, is_ratio=False):
    """One line of the table. `limit` is of the value, or of its ratio to the yardstick, which is a name and a value."""
    ratio = value / yardstick[1] if yardstick and yardstick[1] else None
    judged = ratio if is_ratio else value
    return {
        "what": what,
        "measured": f"{value:.3g} {unit}",
        "budget": limit_text or ("" if limit is None else f"at most {limit:g} {unit}"),
        "verdict": "" if limit is None else "kept" if judged <= limit else "**over**",
        "yardstick": f"{yardstick[0]} {yardstick[1]:.3g} {unit}" if yardstick else "",
        "ratio": f"{ratio:.2g} ×" if ratio else "",
    }


def starts(command, has_terminal=False, waits_for_socket=False):
    """Milliseconds of the processor until the program has started and rests; the median."""
    taken = []
    for _ in range(STARTS):
        with Places() as places, Running(places, command, has_terminal,
                                         places.socket_path if waits_for_socket else None) as running:
            time.sleep(0.5)
            taken.append(running.processor_seconds() * 1e3)
    return statistics.median(taken)


def resting(running):
    """Megabytes and wake-ups a second once everything that a start or a change brings has passed."""
    time.sleep(SETTLE_SECONDS)
    wakeups = running.wakeups_a_second(WATCH_SECONDS)
    return running.megabytes(), wakeups


def bare(build):
    """The yardstick: milliseconds of a start, megabytes and wake-ups of a process with Qt's core library alone."""
    command = [str(build / "bare-qtcore")]
    with Places() as places, Running(places, command) as running:
        megabytes, wakeups = resting(running)
    return starts(command), megabytes, wakeups


def terminal(build, yardstick):
    start, megabytes, wakeups = yardstick
    program = str(build / "tomcatto")
    for has_terminal, surroundings in ((False, "without a terminal"), (True, "in a terminal")):
        yield row(f"start of the front end {surroundings}, processor time", starts([program], has_terminal, True), "ms",
                  yardstick=("bare Qt process", start))
        with Places() as places, Running(places, [program], has_terminal, places.socket_path) as running:
            for state, limit in (("idle", 0), ("running", 2.2)):
                if state == "running":
                    places.run(program, "start")
                measured, woken = resting(running)
                yield row(f"front end {surroundings}, {state}: memory", measured, "MB", 12, ("bare Qt process", megabytes))
                yield row(f"front end {surroundings}, {state}: wake-ups", woken, "a second", limit,
                          ("bare Qt process", wakeups))


def commands(build, _):
    program, plain = str(build / "tomcatto"), str(build / "bare-qtcore")
    with Places() as places, Running(places, [program], ready=places.socket_path):
        places.run(program, "start")
        status, nothing = places.alternate(COMMANDS, [program, "status"], [plain, "end"])
    yield row("`tomcatto status`, on the clock", status[0] * 1e3, "ms", 20, ("bare Qt process", nothing[0] * 1e3))
    yield row("`tomcatto status`, processor time", status[1] * 1e3, "ms", yardstick=("bare Qt process", nothing[1] * 1e3))

    data = build.resolve() / "histories" / str(LARGEST_HISTORY)
    with Places() as places:
        places.environment["XDG_DATA_HOME"] = str(data)
        figures, reading = places.alternate(7, [program, "stats", "--range", "allTime", "--json"],
                                            ["sqlite3", str(data / "Tomcatto" / "Tomcatto.sqlite"), STAMPS])
    yield row(f"`tomcatto stats` over {LARGEST_HISTORY:,} phases, processor time", figures[1] * 1e3, "ms", 2,
              ("`sqlite3`", reading[1] * 1e3), "at most 2 × `sqlite3`", True)


def desktop(build, yardstick):
    """The desktop program with no window open, on a display of its own."""
    _, megabytes, wakeups = yardstick
    program, command = str(build / "tomcatto"), str(build / "tomcatto-desktop")
    arguments = [command, "--background", "-hasCompletedOnboarding", "true"]
    with Display() as display:
        taken = []
        for _ in range(STARTS):
            with Places() as places:
                places.environment.update(display)
                with Running(places, arguments, ready=places.socket_path) as running:
                    time.sleep(1)
                    taken.append(running.processor_seconds() * 1e3)
        yield row("start of the desktop program, processor time", statistics.median(taken), "ms", 60)
        with Places() as places:
            places.environment.update(display)
            with Running(places, arguments, ready=places.socket_path) as running:
                for state, limit in (("idle", 0), ("running", 2.2)):
                    if state == "running":
                        places.run(program, "start")
                    measured, woken = resting(running)
                    yield row(f"hidden desktop program, {state}: memory", measured, "MB", 28, ("bare Qt process", megabytes))
                    yield row(f"hidden desktop program, {state}: wake-ups", woken, "a second", limit,
                              ("bare Qt process", wakeups))


MEASUREMENTS = (terminal, commands, desktop)


def main():
    parser = argparse.ArgumentParser(description="Measures whole processes.")
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    options = parser.parse_args()
    yardstick = bare(options.build)
    rows = [line for measurement in MEASUREMENTS for line in measurement(options.build, yardstick)]
    options.output.write_text(json.dumps(rows, indent=1, ensure_ascii=False) + "\n")


if __name__ == "__main__":
    main()
