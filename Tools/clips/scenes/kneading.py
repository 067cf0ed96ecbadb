"""Kneading: a cream cat with dark points treads a knitted blanket with its whole weight, its eyes smiling shut; once it
stops, looks at us, blinks slowly and goes on."""

from actions import Action
from motion import breath, fade, keys, poses, sway
from scene import Scene, part
from sound import purr, rustle

# Ten pushes, left, right, left, over the end of the clip, so that it starts between two of them; then a pause.
START, STEP, PUSHES, SECONDS = 11.2, 1.2, 10, 16


def pushes(left, between, right, lag):
    """The course of what follows the paws `lag` seconds later."""
    start = START + lag
    course = [(start, between), (start + STEP * PUSHES, between)]
    for n in range(PUSHES):
        course.append((start + STEP * (n + 0.5), (left, right)[n % 2]))
        course.append((start + STEP * (n + 1), between))
    return sorted({second % SECONDS: value for second, value in course}.items())


def tread(way, amount, lag):
    """As far to the one side at a push on the left as to the other at one on the right."""
    return keys(way, *pushes(amount, 0, -amount, lag))


def sink(way, amount, lag):
    """The same at each push."""
    return keys(way, *pushes(amount, 0, amount, lag))


def shapes(id, lag=0.0):
    """The part has other drawings of a push on the left and of one on the right."""
    return poses(*pushes(f"{id}-left", None, f"{id}-right", lag))


def pressed(id, lag=0.0):
    return part(id, (0, 0), shapes(id, lag))


HEAD = (tread("x", -20, 0.09), sink("y", 12, 0.07), tread("turn", -3.8, 0.13), sway("y", -2, 4, 0.3))
WHISKERS = (sway("turn", 1, 4, 0.3), tread("turn", -2, 0.2))

SCENE = Scene(
    name="3-kneading",
    drawing="scene-3-kneading.svg",
    seconds=SECONDS,
    parts=(
        part("cat-body", (960, 812), breath("scale_x", 0.005, 4), breath("scale_y", 0.016, 4), shapes("cat-body")),
        pressed("knit-near", 0.05),
        pressed("dent-left", 0.04),
        pressed("dent-right", 0.04),
        pressed("leg-left"),
        pressed("leg-right"),
        pressed("paw-left", 0.03),
        pressed("paw-right", 0.03),
        pressed("lip-left", 0.05),
        pressed("lip-right", 0.05),
        part("cat-head", (850, 600), *HEAD),
        part("chin-shadow", (850, 600), *HEAD),
        part("ear-left", (742, 380), tread("turn", -1.6, 0.24)),
        part("ear-right", (952, 386), tread("turn", -1.6, 0.24)),
        part("eyes", (0, 0), sink("y", 2, 0.1)),
        part("nose-mouth", (0, 0)),
        part("whiskers-left", (786, 548), *WHISKERS),
        part("whiskers-right", (902, 552), *WHISKERS),
        part("tail-1", (1232, 724), sway("turn", 1.5, 4, 0.0), tread("turn", 2, 0.15)),
        part("tail-2", (1292, 726), sway("turn", 2, 4, 0.06)),
        part("tail-3", (1339, 714), sway("turn", 2.5, 4, 0.12), tread("turn", 2, 0.3)),
        part("tail-4", (1372, 686), sway("turn", 3, 4, 0.18)),
        part("tail-5", (1388, 647), sway("turn", 3.5, 4, 0.24)),
        part("tail-6", (1389, 607), sway("turn", 4.5, 4, 0.3)),
        part("tail-7", (1381, 572), sway("turn", 6, 4, 0.36)),
        part("tail-8", (1362, 549), sway("turn", 8, 4, 0.42)),
        part("lamp", (330, -20), sway("turn", 0.5, 8)),
        part("lamp-glow", (330, 210), fade(0.03, 8)),
    ),
    actions=(
        # The pause: the head comes up, the ears turn to us, the eyes open, close slowly, open and smile shut again.
        Action(7.15, "cat-head", "y", -9, (0.7, 2.9, 0.7)),
        Action(7.3, "cat-head", "turn", 3.5, (0.8, 2.3, 0.9)),
        Action(7.15, "chin-shadow", "y", -4, (0.7, 2.9, 0.7)),
        Action(7.25, "ear-left", "turn", 5, (0.3, 2.9, 0.6)),
        Action(7.3, "ear-right", "turn", -5, (0.3, 2.9, 0.6)),
        Action(7.6, "eyes", "eyes-open", 1, (0.5, 0.8, 0.6)),
        Action(9.1, "eyes", "eyes-shut", 1, (0.45, 0.3, 0.4)),
        Action(9.95, "eyes", "eyes-open", 1, (0.45, 0.25, 0.55)),
        Action(7.5, "nose-mouth", "nose-mouth-calm", 1, (0.6, 0.8, 0.6)),
        # One paw kneads on, absent-mindedly.
        *(Action(8.1, f"{id}-right", f"{id}-right-right", 0.3, (0.45, 0.15, 0.6))
          for id in ("leg", "paw", "dent", "lip")),
        Action(8.1, "knit-near", "knit-near-right", 0.3, (0.45, 0.15, 0.6)),
        Action(9.0, "cat-head", "y", 5, (0.5, 0.3, 0.6)),
        Action(8.0, "tail-7", "turn", -8, (0.4, 0.3, 0.6)),
        Action(8.05, "tail-8", "turn", -10, (0.4, 0.3, 0.6)),
        Action(3.2, "ear-right", "turn", 8, (0.15, 0.1, 0.3)),
        Action(13.4, "ear-left", "turn", -8, (0.15, 0.1, 0.3)),
    ),
    cat=("cat-body", "cat-head", "leg-left", "leg-right", "paw-left", "paw-right", "ear-left", "ear-right",
         "whiskers-left", "whiskers-right", *(f"tail-{n}" for n in range(1, 9))),
    sound=(
        purr(-32, breath=4),
        rustle(-35, every=STEP, start=START, presses=PUSHES),
    ),
)
