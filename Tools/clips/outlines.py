"""Bends the shapes of a part towards those of its other drawings."""

import re

import numpy as np

SVG = "{http://www.w3.org/2000/svg}"
NUMBER = re.compile(r"-?(?:\d+\.?\d*|\.\d+)")
SHAPES = {SVG + name for name in ("path", "circle", "ellipse", "rect")}
BENDS = ("d", "cx", "cy", "r", "rx", "ry", "x", "y", "width", "height", "stroke-width", "fill-opacity", "stroke-opacity")
POSITIVE = BENDS[3:6] + BENDS[8:]


def _numbered(element):
    """Every attribute that can be bent: (shape, name, its text with gaps for the numbers, the numbers)."""
    return [(shape, name, NUMBER.sub("{:.2f}", shape.get(name)), [float(n) for n in NUMBER.findall(shape.get(name))])
            for shape in element.iter() if shape.tag in SHAPES for name in BENDS if name in shape.attrib]


class Outlines:
    """All numbers in the shapes of an element, and how far each is from them in `others`: drawings by name, made of the
    same shapes in the same order."""

    def __init__(self, element, others):
        self.rest = _numbered(element)
        self.ways = {}
        for name, other in others.items():
            numbered = _numbered(other)
            if [row[1:3] for row in numbered] != [row[1:3] for row in self.rest]:
                raise SystemExit(f"{name} is not drawn like {element.get('id')}")
            self.ways[name] = self._all(numbered) - self._all(self.rest)
        self.moved = sum(abs(way) for way in self.ways.values()) > 0

    @staticmethod
    def _all(numbered):
        return np.array([n for row in numbered for n in row[3]])

    def strike(self, pose):
        """Writes the numbers for a pose into the shapes."""
        numbers = self._all(self.rest) + sum(pose[name] * way for name, way in self.ways.items())
        at = 0
        for shape, name, text, rest in self.rest:
            piece = slice(at, at + len(rest))
            at += len(rest)
            if self.moved[piece].any():
                values = numbers[piece].clip(0) if name in POSITIVE else numbers[piece]
                shape.set(name, text.format(*values))
