#!/usr/bin/python3
"""Lets the desktop program show break after break, with their videos, and tells what it keeps of them. Linux only.

Benchmarks/breaks.py [--build FOLDER] [--count NUMBER] [--rests]

FOLDER holds the release programs, build/release otherwise. The count is that of TOMCATTO_BREAKS, or of TOMCATTO_RESTS with
--rests, or 200. With --rests the program comes to rest after each break, until the engine of its windows is gone and made
anew for the next one: some seventeen seconds a break. The exit status is 1 where more is kept than allowed.
"""

import argparse
import os
import pathlib
import sys
import time
from typing import NamedTuple

from desktop_session import RELEASE_SECONDS, Followed, Session, ask, film
from figures import row
from measured_process import Places
from screen import Display

COUNT = 200
# Megabytes of private memory that all of them may leave behind, and that a single one may. How much of the libraries counts as
# the program's changes with the other programs that use them, so that part is only told.
ALL_MAY_KEEP = 2
ONE_MAY_KEEP = 5
ARGUMENTS = ["-workDurationSeconds", 1, "-shortBreakDurationSeconds", 1, "-longBreakDurationSeconds", 1]


class Level(NamedTuple):
    """What a program at rest has."""

    private: float
    proportional: float
    resident: float
    threads: int
    descriptors: int

    @staticmethod
    def of(running):
        """Once what its windows took is given back."""
        time.sleep(RELEASE_SECONDS)
        return Level(*running.memory(), running.megabytes("Rss"), running.threads(), running.descriptors())

    def __str__(self):
        return (f"{self.private:.2f} MB private, {self.proportional:.2f} MB proportional, {self.resident:.2f} MB resident,"
                f" {self.threads} threads, {self.descriptors} open files")


def see_breaks(session, count):
    """Sees so many breaks come and go, every other one after a skip, and stops the clock. Returns how many showed a video."""
    with Followed(session.places) as status:
        ask(session.places, "start")
        begun = ended = videos = 0
        is_break, pictures = False, set()
        limit = time.monotonic() + 30
        while ended < count:
            status.read(0.05)
            if status.phase == "work" and begun % 2 and begun == ended:
                # Every other one comes unforeseen.
                ask(session.places, "skip")
                status.phase = None
            was_break, is_break = is_break, status.phase in ("shortBreak", "longBreak")
            if is_break and not was_break:
                begun, pictures, limit = begun + 1, set(), time.monotonic() + 30
            if is_break:
                pictures.add(film(session.display))
            if was_break and not is_break:
                # The ground, the still picture, and what moves.
                ended, videos = ended + 1, videos + (len(pictures) > 3)
            if time.monotonic() > limit:
                raise SystemExit(f"Error: after {begun} breaks there comes no other")
    ask(session.places, "reset")
    return videos


def kept(session, count=COUNT):
    """Rows of what a break and what many breaks leave behind."""
    with session.run(*ARGUMENTS) as running:
        levels = []
        for _ in range(3):
            see_breaks(session, 1)
            levels.append(Level.of(running))
        yield row("memory after a break, above the level after the first", max(level.private for level in levels[1:])
                  - levels[0].private, "MB", ONE_MAY_KEEP)
        videos = see_breaks(session, count)
        last = Level.of(running)
    print(f"{videos} of {count} breaks showed their video; before: {levels[-1]}; after: {last}", file=sys.stderr)
    yield row(f"growth over {count} breaks with their videos: memory", last.private - levels[-1].private, "MB", ALL_MAY_KEEP)
    yield row(f"growth over {count} breaks: threads", last.threads - levels[-1].threads, "threads", 0)
    yield row(f"growth over {count} breaks: open files", last.descriptors - levels[-1].descriptors, "files", 0)


def main():
    parser = argparse.ArgumentParser(description="Shows break after break and tells what is kept of them.")
    parser.add_argument("--build", type=pathlib.Path, default=pathlib.Path(__file__).parents[1] / "build" / "release")
    parser.add_argument("--count", type=int)
    parser.add_argument("--rests", action="store_true")
    options = parser.parse_args()
    variable = "TOMCATTO_RESTS" if options.rests else "TOMCATTO_BREAKS"
    count = options.count or int(os.environ.get(variable, COUNT))
    with Display() as display, Places() as places:
        session = Session(options.build, display, places)
        with session.run(*ARGUMENTS) as running:
            see_breaks(session, 1)
            first = Level.of(running)
            print(f"after the first break: {first}", flush=True)
            videos = 0
            if options.rests:
                for number in range(count):
                    videos += see_breaks(session, 1)
                    level = Level.of(running)
                    if (number + 1) % 10 == 0:
                        print(f"after {number + 1} more with rests: {level}", flush=True)
            else:
                videos = see_breaks(session, count)
            last = Level.of(running)
    print(f"after {count} more, {videos} of them with a video: {last}")
    if videos < count * 0.9:
        sys.exit("Error: too few of them showed their video")
    if last.private > first.private + ALL_MAY_KEEP:
        sys.exit(f"Error: the memory grew by more than {ALL_MAY_KEEP} MB")
    if last.threads > first.threads or last.descriptors > first.descriptors:
        sys.exit("Error: threads or files are left over")


if __name__ == "__main__":
    main()
