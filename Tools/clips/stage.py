"""Puts a scene's drawing into its pose at one frame and paints it.

What never moves is painted once and kept as pictures; what moves stays vector art and is painted anew whenever its pose
changes, so edges are as crisp in motion as at rest.
"""

import math
import pathlib
import xml.etree.ElementTree as ET

import cairo
import gi

gi.require_version("Rsvg", "2.0")
from gi.repository import Rsvg  # noqa: E402

from motion import FPS, Pose  # noqa: E402
from outlines import SVG, Outlines  # noqa: E402

STILL, SELDOM, MOVING = range(3)  # how often a piece of the drawing changes

WIDTH, HEIGHT = 1920, 1080
ART = pathlib.Path(__file__).resolve().parents[2] / "Resources" / "Art" / "scenes"
PLACE = {"x", "y", "turn", "scale", "scale_x", "scale_y", "skew", "opacity"}  # the ways that are not other drawings
SMALL = 12  # shapes: below it repainting is cheaper than laying a full picture over the frame

ET.register_namespace("", "http://www.w3.org/2000/svg")


def _viewport():
    area = Rsvg.Rectangle()
    area.x = area.y = 0
    area.width, area.height = WIDTH, HEIGHT
    return area


def _shapes(element):
    return sum(1 for _ in element.iter())


class _Part:
    """An element of the drawing together with everything that poses it."""

    def __init__(self, element, pivot, seconds):
        self.element = element
        self.pivot = pivot
        self.seconds = seconds
        self.movers = []
        self.outlines = None
        self.shown = element.get("display") != "none"
        self.opacity = float(element.get("opacity", "1"))

    @property
    def restless(self):
        return any(mover.restless for mover in self.movers)

    def pose(self, t):
        pose = Pose()
        for mover in self.movers:
            mover.apply(pose, t, self.seconds)
        return pose

    def learn(self, find):
        """Looks up the other drawings its motions name."""
        others = {way for mover in self.movers for way in mover.ways} - PLACE
        if others:
            self.outlines = Outlines(self.element, {name: find(name) for name in sorted(others)})

    def strike(self, t):
        """Writes the pose at `t` into the drawing."""
        pose = self.pose(t)
        self._set("transform", any(pose[way] for way in PLACE - {"opacity"}) and self._matrix(pose))
        opacity = min(self.opacity * max(self.shown + pose["opacity"], 0.0), 1.0)
        self._set("opacity", opacity < 1 and f"{opacity:.5f}")
        self._set("display", opacity < 1e-4 and "none")
        if self.outlines:
            self.outlines.strike(pose)

    def _set(self, name, value):
        if value:
            self.element.set(name, value)
        else:
            self.element.attrib.pop(name, None)

    def _matrix(self, pose):
        (px, py), turn = self.pivot, math.radians(pose["turn"])
        wide, high = 1 + pose["scale"] + pose["scale_x"], 1 + pose["scale"] + pose["scale_y"]
        sine, cosine, skew = math.sin(turn), math.cos(turn), pose["skew"]
        a, b, c, d = cosine * wide - sine * skew, sine * wide + cosine * skew, -sine * high, cosine * high
        x, y = px + pose["x"] - a * px - c * py, py + pose["y"] - b * px - d * py
        return "matrix(" + " ".join(f"{n:.6f}" for n in (a, b, c, d)) + f" {x:.4f} {y:.4f})"


class _Layer:
    """A run of the drawing. A kept one is painted onto a picture of its own, again only when it has changed."""

    def __init__(self, tree, kept):
        self.tree = tree
        self.kept = kept
        self.text = None
        self.picture = None

    def paint(self, context):
        text = ET.tostring(self.tree)
        if not self.kept:
            self._draw(context, text)
            return
        if text != self.text:
            self.text = text
            self.picture = cairo.ImageSurface(cairo.FORMAT_ARGB32, WIDTH, HEIGHT)
            self._draw(cairo.Context(self.picture), text)
        context.set_source_surface(self.picture)
        context.paint()

    @staticmethod
    def _draw(context, text):
        Rsvg.Handle.new_from_data(text).render_document(context, _viewport())


def _lighten(element, stroke="none", fill="black"):
    """Turns the opacity of single shapes that are only filled, or only stroked, into that of their paint: it looks the
    same, and the renderer needs no picture in between for each of several hundred flakes."""
    stroke, fill = element.get("stroke", stroke), element.get("fill", fill)
    shape = element.tag[len(SVG):] in ("path", "circle", "ellipse", "rect")
    if shape and "opacity" in element.attrib and "clip-path" not in element.attrib and "none" in (stroke, fill):
        paint = "fill-opacity" if stroke == "none" else "stroke-opacity"
        element.set(paint, str(float(element.get(paint, "1")) * float(element.attrib.pop("opacity"))))
    for child in element:
        _lighten(child, stroke, fill)


class Stage:
    """One scene, ready to be painted at any frame."""

    def __init__(self, scene):
        self.scene = scene
        self.root = ET.parse(ART / scene.drawing).getroot()
        _lighten(self.root)
        self.parts = self._parts()
        self.layers = self._layers()

    def _find(self, name):
        id, _, child = name.partition("/")
        found = self.root.findall(f".//*[@id='{id}']")
        if len(found) != 1:
            raise SystemExit(f"{self.scene.drawing}: {len(found)} elements have the id {id}")
        return found[0][int(child) - 1] if child else found[0]

    def _parts(self):
        parts = {}
        for row in self.scene.parts:
            parts.setdefault(row.id, self._part(row.id, row.pivot)).movers.extend(row.motions)
        for action in self.scene.actions:
            parts.setdefault(action.id, self._part(action.id, (0, 0))).movers.append(action)
        for item in parts.values():
            item.learn(self._find)
        return parts

    def _part(self, name, pivot):
        return _Part(self._find(name), pivot, self.scene.seconds)

    def _layers(self):
        """Runs of the drawing, back to front, each of pieces that change equally often."""
        restless = {id(p.element): MOVING if p.restless else SELDOM for p in self.parts.values()}
        pace = {id(e): max(restless.get(id(d), STILL) for d in e.iter()) for e in self.root.iter()}

        def pieces(element, wraps):
            plain = id(element) not in restless and not {"opacity", "transform", "display"} & element.attrib.keys()
            if pace[id(element)] != STILL and plain and _shapes(element) >= SMALL:
                for child in element:
                    yield from pieces(child, wraps + [element])
            else:
                yield pace[id(element)], element, wraps

        runs = []
        for child in self.root:
            if child.tag in (SVG + "defs", SVG + "title") or child.get("id") == "poses":
                continue
            for how, element, wraps in pieces(child, []):
                if not runs or runs[-1][0] != how:
                    runs.append((how, []))
                runs[-1][1].append((element, wraps))
        merged = []
        for how, items in runs:
            small = sum(_shapes(e) for e, _ in items) < SMALL
            if merged and (merged[-1][0] == how or (small and merged[-1][0] == MOVING)):
                merged[-1][1].extend(items)
            else:
                merged.append((how, list(items)))
        return [_Layer(self._tree(items), kept=how != MOVING) for how, items in merged]

    def _tree(self, items):
        """A drawing of its own with these elements, each inside copies of the groups it comes from."""
        tree = ET.Element(self.root.tag, self.root.attrib)
        tree.extend(self.root.findall(SVG + "defs"))
        last, inner = None, tree
        for element, wraps in items:
            if last is None or [id(w) for w in wraps] != [id(w) for w in last]:
                inner = tree
                for wrap in wraps:
                    inner = ET.SubElement(inner, wrap.tag, {k: v for k, v in wrap.attrib.items() if k != "id"})
                last = wraps
            inner.append(element)
        return tree

    def paint(self, frame):
        """The picture of a frame, as a cairo surface of 32-bit pixels."""
        for p in self.parts.values():
            p.strike(frame / FPS)
        surface = cairo.ImageSurface(cairo.FORMAT_RGB24, WIDTH, HEIGHT)
        context = cairo.Context(surface)
        for layer in self.layers:
            layer.paint(context)
        surface.flush()
        return surface
