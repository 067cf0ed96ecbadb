"""The words the scene tables are written in: what moves all the time, and what goes through a course.

A pose says how far a part of the drawing has gone in each of its *ways*; nothing is the drawing as it is. The ways are
"x" and "y" (scene pixels, 1920 x 1080), "turn" (degrees, clockwise positive), "scale", "scale_x", "scale_y" and "skew"
(0.1 is a tenth more), "opacity" (from 1, or from 0 for what the drawing hides), and the id of every other drawing of the
part in the hidden group "poses": 1 is all the way there. A motion moves a part in one way or several; motions add up.

Times and periods are seconds, phases are fractions of a period. Every period divides its clip's length and every course
goes from its last key on to its first, so that the pose at the end of a clip is the pose at its start.
"""

import math
from collections import defaultdict
from dataclasses import dataclass
from typing import Callable

FPS = 30


def frames(count):
    """The length of `count` frames in seconds."""
    return count / FPS


def ease(u):
    """Cosine ease from 0 to 1, flat at both ends."""
    u = min(max(u, 0.0), 1.0)
    return (1 - math.cos(math.pi * u)) / 2


class Pose(defaultdict):
    """Numbers by way."""

    def __init__(self):
        super().__init__(float)


@dataclass(frozen=True)
class Motion:
    """Moves a part in a `way` by the value that `course` has at a second of a clip so many seconds long. A restless
    one never stops."""

    way: str
    course: Callable[[float, float], float]
    restless: bool = True

    @property
    def ways(self):
        return (self.way,)

    def apply(self, pose, t, seconds):
        pose[self.way] += self.course(t, seconds)


def sway(way, amount, period, phase=0.0):
    """A sine: at rest at its phase, moving towards positive."""
    return Motion(way, lambda t, _: amount * math.sin(2 * math.pi * (t / period - phase)))


def breath(way, amount, period, phase=0.0):
    """In to `amount` during two fifths of the period, out again during the rest."""
    def course(t, _):
        u = (t / period - phase) % 1.0
        return amount * ease(u / 0.4 if u < 0.4 else (1 - u) / 0.6)
    return Motion(way, course)


def travel(way, start, end, period, phase=0.0):
    """Evenly from `start` to `end`, and from the start again: the drawing repeats itself there, or cannot be seen."""
    return Motion(way, lambda t, _: start + (end - start) * ((t / period + phase) % 1.0))


def fade(share, period, phase=0.0):
    """Opacity between full and `share` less."""
    return Motion("opacity", lambda t, _: -share / 2 * (1 - math.sin(2 * math.pi * (t / period - phase))))


def puff(start, end, period, phase=0.0):
    """Rises from y `start` to y `end`, coming out of nothing and going back into it."""
    return (travel("y", start, end, period, phase),
            Motion("opacity", lambda t, _: math.sin(math.pi * ((t / period + phase) % 1.0)) - 1))


def keys(way, *pairs):
    """Goes through (second, value) pairs as `through` does."""
    return Motion(way, through(*pairs), restless=False)


def through(*pairs):
    """A smooth course through (second, value) pairs. It never overshoots: it comes to rest where it turns back and where
    two values are the same, and flows through the others."""
    def course(t, seconds):
        t, (a, b, c, d) = _around(pairs, t, seconds)
        return _cubic(t, b, c, _slope(a, b, c), _slope(b, c, d))
    return course


@dataclass(frozen=True)
class Poses:
    """Takes the shapes of a part from one of its other drawings to the next."""

    pairs: tuple
    restless = False

    @property
    def ways(self):
        return {name for _, name in self.pairs} - {None}

    def apply(self, pose, t, seconds):
        t, around = _around(self.pairs, t, seconds)
        names = [name for _, name in around]
        for name in set(names) - {None}:
            a, b, c, d = ((second, float(other == name)) for second, other in around)
            start = 0.0 if names[1] in (names[0], names[2]) else (c[1] - a[1]) / (c[0] - a[0])
            end = 0.0 if names[2] in (names[1], names[3]) else (d[1] - b[1]) / (d[0] - b[0])
            pose[name] += _cubic(t, b, c, start, end)


def poses(*pairs):
    """Goes through (second, id) pairs of other drawings, None being the part as it is drawn: it flows through one in
    passing and rests where it is named twice."""
    return Poses(pairs)


def _around(pairs, t, seconds):
    """The time within the clip, and the two keys before and the two after it, those of other rounds moved next to it."""
    t %= seconds
    here = sum(1 for pair in pairs if pair[0] <= t) - 1
    picked = []
    for k in range(here - 1, here + 3):
        rounds, k = divmod(k, len(pairs))
        picked.append((pairs[k][0] + rounds * seconds, pairs[k][1]))
    return t, picked


def _slope(before, here, after):
    """Level where a course turns or rests, otherwise the weighted harmonic mean of both sides."""
    (t0, v0), (t1, v1), (t2, v2) = before, here, after
    left, right = (v1 - v0) / (t1 - t0), (v2 - v1) / (t2 - t1)
    if left * right <= 0:
        return 0.0
    a, b = 2 * (t2 - t1) + (t1 - t0), (t2 - t1) + 2 * (t1 - t0)
    return (a + b) / (a / left + b / right)


def _cubic(t, start, end, slope_start, slope_end):
    (t1, v1), (t2, v2) = start, end
    h = t2 - t1
    s = (t - t1) / h
    return ((1 + 2 * s) * (1 - s) ** 2 * v1 + s * s * (3 - 2 * s) * v2
            + h * s * (1 - s) ** 2 * slope_start - h * s * s * (1 - s) * slope_end)
