"""The vocabulary the scene tables are written in.

A motion is a function of time that is added to the pose of one part of a drawing. Times and periods are seconds,
lengths are scene pixels (1920 x 1080), angles are degrees with clockwise positive, phases are fractions of a period.
Every period divides its clip's length, so the pose at the end of a clip is the pose at its start.
"""

import math
from dataclasses import dataclass, field

FPS = 30


def frames(count):
    """The length of `count` frames in seconds."""
    return count / FPS


@dataclass
class Pose:
    """How a part stands at one moment, relative to the drawing: shift, turn and scale about its pivot."""

    x: float = 0.0
    y: float = 0.0
    turn: float = 0.0
    scale_x: float = 1.0
    scale_y: float = 1.0
    opacity: float = 1.0
    shown: bool | None = None  # None leaves the drawing's own choice


def _angle(t, period, phase):
    return 2 * math.pi * (t / period - phase)


@dataclass(frozen=True)
class Swing:
    """offset + amount * sin, of the pose's `axis` ("x", "y" or "turn"); `lead` is a quarter for a cosine."""

    axis: str
    amount: float
    period: float
    phase: float = 0.0
    offset: float = 0.0
    lead: float = 0.0

    def apply(self, pose, t):
        value = self.offset + self.amount * math.sin(_angle(t, self.period, self.phase - self.lead))
        setattr(pose, self.axis, getattr(pose, self.axis) + value)


def sway(axis, amount, period, phase=0.0):
    """A sine: at rest at its phase, moving towards positive."""
    return Swing(axis, amount, period, phase)


def cosine(axis, amount, period, phase=0.0, offset=0.0):
    """A cosine: at its far end at its phase."""
    return Swing(axis, amount, period, phase, offset, lead=0.25)


@dataclass(frozen=True)
class Breathe:
    """Grows about the pivot by up to `x` and `y` per cent and back."""

    x: float
    y: float
    period: float
    phase: float = 0.0

    def apply(self, pose, t):
        swell = (1 - math.cos(_angle(t, self.period, self.phase))) / 200
        pose.scale_x *= 1 + self.x * swell
        pose.scale_y *= 1 + self.y * swell


@dataclass(frozen=True)
class Travel:
    """Moves evenly by (x, y) in a period and starts over; the drawing repeats itself at that distance."""

    x: float
    y: float
    period: float

    def apply(self, pose, t):
        u = (t / self.period) % 1.0
        pose.x += self.x * u
        pose.y += self.y * u


@dataclass(frozen=True)
class Puff:
    """Rises from y `start` to y `end`, coming out of nothing and going back into it."""

    start: float
    end: float
    period: float
    phase: float = 0.0

    def apply(self, pose, t):
        u = (t / self.period + self.phase) % 1.0
        pose.y += self.start + (self.end - self.start) * u
        pose.opacity *= math.sin(math.pi * u)


@dataclass(frozen=True)
class Flap:
    """Narrows sideways about the pivot by up to `amount` of the width and opens again."""

    amount: float
    period: float

    def apply(self, pose, t):
        pose.scale_x *= 1 - self.amount * (1 - math.cos(_angle(t, self.period, 0))) / 2


@dataclass(frozen=True)
class Press:
    """A dent: grows by `amount` and darkens from `faint` to full while it is pressed, half of each period."""

    amount: float
    period: float
    phase: float = 0.0
    faint: float = 0.55

    def apply(self, pose, t):
        depth = max(0.0, math.sin(_angle(t, self.period, self.phase)))
        pose.scale_x *= 1 + self.amount * depth
        pose.scale_y *= 1 + self.amount * depth
        pose.opacity *= self.faint + (1 - self.faint) * depth


@dataclass(frozen=True)
class Loop:
    """Follows a closed smooth curve (Catmull-Rom) through `points`, the same time for each piece."""

    points: tuple
    period: float

    def apply(self, pose, t):
        u = (t / self.period) % 1.0 * len(self.points)
        piece, s = int(u), u - int(u)
        around = [self.points[(piece + k) % len(self.points)] for k in (-1, 0, 1, 2)]
        pose.x += _catmull_rom([p[0] for p in around], s)
        pose.y += _catmull_rom([p[1] for p in around], s)


def _catmull_rom(p, s):
    return 0.5 * (2 * p[1] + (p[2] - p[0]) * s + (2 * p[0] - 5 * p[1] + 4 * p[2] - p[3]) * s ** 2
                  + (3 * p[1] - p[0] - 3 * p[2] + p[3]) * s ** 3)


@dataclass(frozen=True)
class Fade:
    """Opacity between full and `percent` less."""

    percent: float
    period: float
    phase: float = 0.0

    def apply(self, pose, t):
        pose.opacity *= 1 - self.percent / 200 * (1 - math.sin(_angle(t, self.period, self.phase)))


@dataclass(frozen=True)
class Revolve:
    """Turns evenly, once in a period."""

    period: float

    def apply(self, pose, t):
        pose.turn += 360 * ((t / self.period) % 1.0)


@dataclass(frozen=True)
class Mirror:
    """Faces the other way in the second half of each period. Each change takes `seconds` and is complete at the
    turn; it never gets thinner than `thin` of its width, so that no frame shows it edge-on."""

    period: float
    seconds: float = 0.25
    thin: float = 0.2

    def apply(self, pose, t):
        half = self.period / 2
        left = half - t % half
        width = 1.0 if t % self.period < half else -1.0
        if left < self.seconds:
            narrowed = math.cos(math.pi * (1 - left / self.seconds))
            width *= math.copysign(max(abs(narrowed), self.thin), narrowed)
        pose.scale_x *= width
