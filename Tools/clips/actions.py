"""Timed gestures: what happens once in a clip, on top of the motions. They may run over its end."""

import math
from dataclasses import dataclass

from motion import ease


@dataclass(frozen=True)
class Action:
    """Moves a part in a `way` by `amount` and back, over (rise, hold, fall) seconds from `start`."""

    start: float
    id: str
    way: str
    amount: float
    times: tuple
    restless = False

    @property
    def ways(self):
        return (self.way,)

    def apply(self, pose, t, seconds):
        since, (rise, hold, fall) = (t - self.start) % seconds, self.times
        if since < rise:
            pose[self.way] += self.amount * ease(since / rise)
        elif since < rise + hold + fall:
            pose[self.way] += self.amount * (ease((rise + hold + fall - since) / fall) if fall else 1.0)


@dataclass(frozen=True)
class Ring:
    """A swing in a `way` that dies away: to a third in `fade` seconds, and to nothing in five times that."""

    start: float
    id: str
    way: str
    amount: float
    swing: float
    fade: float
    phase: float = 0.0
    restless = False

    @property
    def ways(self):
        return (self.way,)

    def apply(self, pose, t, seconds):
        since = (t - self.start) % seconds
        if since < 5 * self.fade:
            left = math.exp(-since / self.fade) * (1 - since / self.fade / 5) * min(since / 0.1, 1)
            pose[self.way] += self.amount * left * math.sin(2 * math.pi * (since / self.swing - self.phase))


def blink(start, close=0.1, hold=0.05, open=0.2):
    """Closes the eyes and opens them again."""
    return Action(start, "lids", "lids-shut", 1, (close, hold, open))
