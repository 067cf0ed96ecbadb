"""Box and butterfly: a calico in a carton in a greenhouse ducks until only its ears show, and rises again."""

from actions import Action, blink, swap
from motion import Breathe, Fade, Flap, Loop, frames, sway
from scene import Scene, part
from sound import birds, chirp, scrape

BREATH = 3.5
FLIGHT = ((0, 0), (-150, -70), (-330, 10), (-430, 190), (-210, 90), (60, 150), (150, -10))
GAZE = ((0, 0), (-5, -2), (-13, -1), (-13, 2), (-8, 2), (2, 4), (3, 0))
WINGS = (Flap(0.5, frames(14)),)
PUPIL = (Loop(GAZE, 14),)
WHISKERS = (sway("turn", 1, BREATH, 0.3),)
TOMATO = (sway("turn", 2.2, BREATH, 0.2),)

# Where each leaf's stalk ends.
STALKS = {
    "leaf-l-1": (170, 120), "leaf-l-2": (160, 200), "leaf-l-3": (166, 320), "leaf-l-4": (170, 400),
    "leaf-l-5": (176, 470), "leaf-l-6": (168, 580), "leaf-l-7": (170, 660), "leaf-l-8": (168, 60),
    "leaf-r-1": (1742, 100), "leaf-r-2": (1756, 180), "leaf-r-3": (1756, 300), "leaf-r-4": (1744, 360),
    "leaf-r-5": (1736, 470), "leaf-r-6": (1744, 560), "leaf-r-7": (1756, 650), "leaf-r-8": (1740, 40),
}
LEAVES = tuple(part(leaf, stalk, sway("turn", 2, BREATH, (5 * k % 16) / 16))
               for k, (leaf, stalk) in enumerate(STALKS.items()))

SCENE = Scene(
    name="4-box-and-butterfly",
    drawing="scene-4-box.svg",
    seconds=14,
    parts=(
        part("butterfly", (1330, 226), Loop(FLIGHT, 14), sway("turn", 7, frames(70))),
        part("wings-left", (1330, 226), *WINGS),
        part("wings-right", (1330, 226), *WINGS),
        part("pupil-left", (878, 430), *PUPIL),
        part("pupil-right", (1000, 443), *PUPIL),
        part("cat-head", (920, 537), sway("turn", 1.2, 7, 0.1), sway("y", -2, BREATH, 0.3)),
        part("cat-body", (945, 860), Breathe(0.4, 1.5, BREATH)),
        part("ear-left", (866, 352)),
        part("ear-right", (1011, 368)),
        part("whiskers-left", (854, 488), *WHISKERS),
        part("whiskers-right", (994, 503), *WHISKERS),
        part("tail-1", (1172, 700), sway("turn", 1.5, BREATH)),
        part("tail-2", (1196, 598), sway("turn", 2.5, BREATH, 0.07)),
        part("tail-3", (1226, 527), sway("turn", 3, BREATH, 0.14)),
        part("tail-4", (1229, 471), sway("turn", 4, BREATH, 0.21)),
        part("tail-5", (1215, 417), sway("turn", 5, BREATH, 0.28)),
        part("tail-6", (1188, 368), sway("turn", 7, BREATH, 0.35)),
        part("flap-back-left", (655, 555)),
        part("flap-front-right", (1288, 615)),
        part("vine-left", (160, 0), sway("turn", 0.35, 7)),
        part("vine-right", (1750, 0), sway("turn", 0.35, 7, 0.4)),
        *LEAVES,
        part("tomato-1", (286, 501), *TOMATO),
        part("tomato-2", (232, 531), *TOMATO),
        part("tomato-3", (1634, 442), *TOMATO),
        part("tomato-4", (1690, 469), *TOMATO),
        part("tomato-5", (1606, 399), *TOMATO),
        part("ray-1", (0, 0), Fade(12, 14)),
        part("ray-2", (0, 0), Fade(12, 7, 0.3)),
    ),
    actions=(
        # The trail is where the butterfly comes from when the clip starts; it goes with it.
        Action(0, "butterfly-trail", "opacity", 0, (1.4, 11.2, 1.4)),
        *blink(2.2),
        # The paws let go of the edge, sink behind it with the head, and take hold again.
        Action(3.8, "paws-front", "y", -40, (0.2, 3.8, 0.2)),
        *swap(4, 7.8, "paws-front", "paws-behind"),
        Action(4, "paws-behind", "y", 120, (0.5, 2.95, 0.35)),
        Action(4, "cat-head", "y", 262, (0.5, 2.8, 0.7)),
        Action(4, "cat-body", "y", 160, (0.5, 2.8, 0.7)),
        Action(4.1, "tail", "y", 120, (0.5, 2.7, 0.7)),
        Action(4.1, "flap-back-left", "turn", -3, (0.3, 0.2, 0.6)),
        Action(4.1, "flap-front-right", "turn", -5, (0.3, 0.2, 0.6)),
        Action(5.4, "ear-left", "turn", -9, (0.15, 0.2, 0.25)),
        Action(6.3, "ear-right", "turn", 9, (0.15, 0.2, 0.25)),
        *blink(11.4),
    ),
    cat=("cat-body", "cat-head", "pupil-left", "pupil-right", "ear-left", "ear-right", "paws-front", "paws-behind",
         "whiskers-left", "whiskers-right", "tail", "tail-1", "tail-2", "tail-3", "tail-4", "tail-5", "tail-6"),
    sound=(
        birds(-41),
        scrape(-40, at=4.0),
        scrape(-41, at=7.3),
        chirp(-37, at=8.5),
    ),
)
