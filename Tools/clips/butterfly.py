"""How a butterfly flies: its pieces are drawn flat, seen from above and flying upwards, and turned about in space."""

import math
from dataclasses import dataclass
from typing import Callable

from motion import Motion

LOOKS_DOWN = math.radians(24)  # by how much the viewer looks down on it


@dataclass(frozen=True)
class Flight:
    """`beats` of the wings in a clip, hurried and slowed by `gusts`, (beats, period) each; a course that is 1 while it
    sits; and courses in degrees: `heading` (0 right, 90 to the viewer, 180 left), `climb` (nose up) and `bank` (right
    wing down)."""

    beats: int
    gusts: tuple
    sits: Callable
    heading: Callable
    climb: Callable
    bank: Callable
    fanning: float = 1.75  # seconds to a slow beat while it sits

    def _turns(self, t, seconds):
        return self.beats * t / seconds + sum(a * math.sin(2 * math.pi * (t / p - k / 2))
                                              for k, (a, p) in enumerate(self.gusts))

    def lift(self, t, seconds):
        """Degrees by which the wings stand above level."""
        flying = 24 + 46 * math.cos(2 * math.pi * self._turns(t, seconds))
        sitting = 67 - 8 * math.cos(2 * math.pi * t / self.fanning)
        return flying + (sitting - flying) * self.sits(t, seconds)

    def axes(self, t, seconds):
        """Where ahead, right and up are, as (right, down, to the viewer)."""
        h, c, b = (math.radians(course(t, seconds)) for course in (self.heading, self.climb, self.bank))
        ahead = (math.cos(h) * math.cos(c), -math.sin(c), math.sin(h) * math.cos(c))
        up = (-math.cos(h) * math.sin(c), -math.cos(c), -math.sin(h) * math.sin(c))
        right = (-math.sin(h), 0.0, math.cos(h))
        return (ahead, tuple(r * math.cos(b) - u * math.sin(b) for r, u in zip(right, up)),
                tuple(u * math.cos(b) + r * math.sin(b) for r, u in zip(right, up)))

    def heave(self):
        """The body goes up as the wings go down."""
        return Motion("y", lambda t, s: 7 * math.sin(0.5 - 2 * math.pi * self._turns(t, s)) * (1 - self.sits(t, s)))


def _seen(v):
    return v[0], v[1] * math.cos(LOOKS_DOWN) + v[2] * math.sin(LOOKS_DOWN)


@dataclass(frozen=True)
class Piece:
    """Of a butterfly in flight: `side` is 1 for its right wing, -1 for its left one, 0 for the body. The far wings are
    hidden in the drawing and show while their side is turned away; the near ones show while it is not."""

    flight: Flight
    side: int = 0
    far: bool = False
    restless = True
    ways = ("turn", "scale_x", "scale_y", "skew", "opacity")

    def apply(self, pose, t, seconds):
        ahead, right, up = self.flight.axes(t, seconds)
        (fx, fy), length = _seen(ahead), math.hypot(*_seen(ahead)) or 1.0
        if self.side:
            lift = math.radians(self.flight.lift(t, seconds))
            wx, wy = _seen([r * math.cos(lift) + self.side * u * math.sin(lift) for r, u in zip(right, up)])
            pose["opacity"] += ((self.side * right[2] > 0) != self.far) - (not self.far)
        else:
            wx, wy = -fy / length, fx / length
        # The drawing's upwards goes ahead, its sideways goes along the wing.
        pose["turn"] += math.degrees(math.atan2(fx, -fy))
        pose["scale_y"] += length - 1
        pose["scale_x"] += (-wx * fy + wy * fx) / length - 1
        pose["skew"] += (wx * -fx - wy * fy) / length
