"""What a scene table consists of."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Part:
    """A group of the drawing (its id, or "id/3" for its third child), the point it moves about, and its motions."""

    id: str
    pivot: tuple
    motions: tuple = ()


def part(id, pivot, *motions):
    return Part(id, pivot, motions)


@dataclass(frozen=True)
class Scene:
    """One clip: its file name without extension, its drawing, its length in seconds, what moves all the time, what
    happens once, which parts the cat consists of, and what is heard."""

    name: str
    drawing: str
    seconds: int
    parts: tuple
    actions: tuple
    cat: tuple
    sound: tuple
