#!/usr/bin/python3
"""Measures whole processes for ./benchmark: start, memory, wake-ups, commands, windows.

Benchmarks/processes.py --build FOLDER --output FILE

FOLDER holds the programs and the folder "histories" that tomcatto-benchmarks has made. FILE gets a list of objects with
the texts "what", "measured", "budget", "verdict", "yardstick" and "ratio". A further program is one more function in
MEASUREMENTS. The exit status is 1 where one failed; its lines are missing then.
"""

import argparse
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

import desktop
import library
from figures import memory_rows, resting, row, starts
from measured_process import Places, Running

COMMANDS = 50
LARGEST_HISTORY = 1_000_000
IMPORTS = 5
IMPORTED = 100_000
STAMPS = ("SELECT startedAt, actualDurationSeconds FROM PomodoroSessionRecord"
          " WHERE phase = 'work' AND wasCompleted = 1 ORDER BY startedAt")


def bare(build):
    """The yardstick: milliseconds of a start, memory and wake-ups of a process with Qt's core library alone."""
    command = [str(build / "bare-qtcore")]
    with Places() as places, Running(places, command) as running:
        memory, wakeups = resting(running)
    return starts(command), memory, wakeups


def terminal(build, yardstick):
    start, memory, wakeups = yardstick
    program = str(build / "tomcatto")
    for has_terminal, surroundings in ((False, "without a terminal"), (True, "in a terminal")):
        yield row(f"start of the front end {surroundings}, processor time", starts([program], has_terminal, True), "ms",
                  yardstick=("bare Qt process", start))
        with Places() as places, Running(places, [program], has_terminal, places.socket_path) as running:
            for state, limit in (("idle", 0), ("running", 2.2)):
                if state == "running":
                    places.run(program, "start")
                measured, woken = resting(running)
                yield from memory_rows(f"front end {surroundings}, {state}", measured, (2, 14), "bare Qt process", memory)
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


def store_below(data):
    return str(data / "Tomcatto" / "Tomcatto.sqlite")


def imports(build, _):
    """An exported file into an empty history, beside the same rows loaded into the same table."""
    program = str(build.resolve() / "tomcatto")
    make_history = pathlib.Path(__file__).parent.parent / "Tools" / "make-history"
    with Places() as places, tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for phases, data in ((IMPORTED, folder / "full"), (1, folder / "empty")):
            subprocess.run([make_history, "--phases", str(phases), data], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["sqlite3", store_below(folder / "empty"), "DELETE FROM PomodoroSessionRecord"], check=True)
        with open(folder / "rows.csv", "w", encoding="utf-8") as rows:
            subprocess.run(["sqlite3", "-csv", store_below(folder / "full"), "SELECT * FROM PomodoroSessionRecord"],
                           check=True, stdout=rows)
        places.run(program, "export", "--range", "allTime", str(folder / "phases.csv"), XDG_DATA_HOME=str(folder / "full"))
        taken = []
        for round_number in range(IMPORTS):
            ours, theirs = (shutil.copytree(folder / "empty", folder / f"{kind}{round_number}") for kind in ("ours", "theirs"))
            taken.append((places.run(program, "history", "import", str(folder / "phases.csv"), XDG_DATA_HOME=str(ours))[1],
                          places.run("sqlite3", store_below(theirs),
                                     f".import --csv {folder / 'rows.csv'} PomodoroSessionRecord")[1]))
    imported, loaded = (statistics.median(column) * 1e3 for column in zip(*taken))
    yield row(f"`tomcatto history import` of {IMPORTED:,} phases, processor time", imported, "ms", 2, ("`sqlite3`", loaded),
              "at most 2 × `sqlite3`", True)


MEASUREMENTS = (terminal, commands, imports, *library.MEASUREMENTS, *desktop.MEASUREMENTS)


def main():
    parser = argparse.ArgumentParser(description="Measures whole processes.")
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    options = parser.parse_args()
    # Pages of a program that was built a moment ago would count as its own until they are on disk.
    os.sync()
    yardstick = bare(options.build)
    rows, has_failed = [], False
    for measurement in MEASUREMENTS:
        # One that fails does not take the minutes of the others with it.
        try:
            for line in measurement(options.build, yardstick):
                print(f"{line['what']}: {line['measured']}", file=sys.stderr, flush=True)
                rows.append(line)
        except (SystemExit, OSError) as failure:
            print(failure, file=sys.stderr, flush=True)
            has_failed = True
        options.output.write_text(json.dumps(rows, indent=1, ensure_ascii=False) + "\n")
    sys.exit(has_failed)


if __name__ == "__main__":
    main()
