"""Timed gestures: what happens once in a clip, on top of the motions that never stop. Times are seconds."""

import math
from dataclasses import dataclass

from motion import frames


def ease(u):
    """Cosine ease from 0 to 1, flat at both ends."""
    u = min(max(u, 0.0), 1.0)
    return (1 - math.cos(math.pi * u)) / 2


def envelope(t, start, rise, hold, fall):
    """0 before `start` and after the end, 1 while held, eased in between."""
    since = t - start
    if since <= 0 or since >= rise + hold + fall:
        return 0.0
    if since < rise:
        return ease(since / rise)
    return 1.0 if since <= rise + hold else ease((rise + hold + fall - since) / fall)


@dataclass(frozen=True)
class Action:
    """A single gesture on top of the motions: `axis` by `amount`, over (rise, hold, fall) seconds from `start`.
    For the axis "opacity" the amount is the opacity to reach."""

    start: float
    id: str
    axis: str
    amount: float
    times: tuple

    def apply(self, pose, t):
        level = envelope(t, self.start, *self.times)
        if self.axis == "opacity":
            pose.opacity *= 1 + (self.amount - 1) * level
        else:
            setattr(pose, self.axis, getattr(pose, self.axis) + self.amount * level)

    @property
    def end(self):
        return self.start + sum(self.times)


@dataclass(frozen=True)
class Show:
    """Shows a part from `start` to `end`, or hides it with `invert`; otherwise the drawing decides. With `unfold` it
    grows from that fraction of its height, and shrinks again, in `fold` seconds."""

    start: float
    end: float
    id: str
    invert: bool = False
    unfold: float = 1.0
    fold: float = 0.2

    def apply(self, pose, t):
        inside = self.start - 1e-6 <= t < self.end - 1e-6
        if inside:
            pose.shown = not self.invert
        if inside and self.unfold < 1:
            edge = min(t - self.start, self.end - t)
            pose.scale_y *= self.unfold + (1 - self.unfold) * ease(edge / self.fold)


def swap(start, end, usual, other):
    """Shows `other` in place of `usual` from `start` to `end`."""
    return swap_unfolding(start, end, usual, other, 1.0)


def swap_unfolding(start, end, usual, other, unfold):
    """The same, `other` growing from `unfold` of its height."""
    return (Show(start, end, usual, invert=True), Show(start, end, other, unfold=unfold))


def blink(start):
    """Closes open eyes for five frames."""
    return swap(start, start + frames(5), "eyes-open", "eyes-closed")


@dataclass(frozen=True)
class Runner:
    """A drop that runs down the pane: hidden until `start`, then falls from y -40 to y 730 faster and faster in three
    seconds. `drawn` is the y at which the drawing has it."""

    start: float
    id: str
    drawn: float
    seconds: float = 3.0

    def apply(self, pose, t):
        u = (t - self.start) / self.seconds
        pose.shown = 0 <= u < 1
        if pose.shown:
            pose.y += -40 + 770 * u * u - self.drawn
