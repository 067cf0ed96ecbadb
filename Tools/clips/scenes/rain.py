"""Rain on the sill: a ginger tabby asleep on a leaf cushion."""

from actions import Action, Runner
from motion import Breathe, Fade, Puff, Travel, sway
from scene import Scene, part
from sound import gust, purr, rain

HEAD = (sway("y", -1.6, 4, 0.3), sway("turn", 0.4, 4, 0.3))
WHISKERS = (sway("turn", 1.2, 4, 0.3),)
EARLY_TWIG = (sway("turn", 1.4, 4, 0.1),)
LATE_TWIG = (sway("turn", 1.4, 4, 0.4),)
TOMATO = (sway("turn", 2, 4, 0.25),)

SCENE = Scene(
    name="1-rain-on-the-sill",
    drawing="scene-1-rain.svg",
    seconds=16,
    parts=(
        part("cat-body", (960, 772), Breathe(0.6, 1.8, 4)),
        part("haunch", (1145, 760), Breathe(0.4, 1, 4, 0.05)),
        part("cat-head", (836, 726), *HEAD),
        part("head-shadow", (805, 710), *HEAD),
        part("ear-left", (741, 603)),
        part("ear-right", (858, 593)),
        part("whiskers-left", (751, 712), *WHISKERS),
        part("whiskers-right", (867, 702), *WHISKERS),
        part("tail-3", (1052, 795)),
        part("tail-4", (967, 785)),
        part("tail-5", (922, 775)),
        part("rain-far", (960, -46), Travel(-78, 780, 1.6)),
        part("rain-near", (960, -46), Travel(-78, 780, 0.8)),
        part("steam-1", (446, 594), Puff(14, -34, 4)),
        part("steam-2", (446, 594), Puff(14, -34, 4, 0.5)),
        part("plant-top", (1452, 644), sway("turn", 0.7, 8)),
        part("twig-1", (1452, 594), *EARLY_TWIG),
        part("twig-3", (1456, 484), *EARLY_TWIG),
        part("plant-crown", (1446, 378), *EARLY_TWIG),
        part("twig-2", (1450, 554), *LATE_TWIG),
        part("twig-4", (1456, 454), *LATE_TWIG),
        part("tomato-1", (1416, 526), *TOMATO),
        part("tomato-2", (1506, 549), *TOMATO),
        part("tomato-3", (1476, 491), *TOMATO),
        part("tomato-4", (1392, 582), *TOMATO),
        part("curtain-left", (250, -46), sway("turn", 0.45, 8)),
        part("curtain-right", (1670, -46), sway("turn", 0.4, 8, 0.35)),
        part("cloud-1", (0, 0), sway("x", 16, 16)),
        part("cloud-2", (0, 0), sway("x", -14, 16, 0.2)),
        part("cloud-3", (0, 0), sway("x", 16, 16)),
        part("lamp-glow", (0, 0), Fade(3, 8)),
    ),
    actions=(
        Runner(0.5, "runner-1", drawn=254),
        Action(3, "ear-right", "turn", 9, (0.25, 0.9, 0.5)),
        Runner(3, "runner-2", drawn=424),
        Action(5, "house-1-window-2", "opacity", 0.2, (0.3, 6, 0.3)),
        Runner(5.5, "runner-3", drawn=164),
        Runner(8, "runner-4", drawn=354),
        Action(9.4, "ear-left", "turn", -7, (0.2, 0.3, 0.4)),
        Runner(10.5, "runner-5", drawn=134),
        Action(11.6, "tail-3", "turn", 4, (0.7, 0.3, 0.9)),
        Action(11.7, "tail-4", "turn", 9, (0.7, 0.3, 0.9)),
        Action(11.8, "tail-5", "turn", 12, (0.7, 0.3, 0.9)),
        Runner(12.8, "runner-6", drawn=284),
    ),
    cat=("cat-body", "haunch", "cat-head", "ear-left", "ear-right", "whiskers-left", "whiskers-right",
         "tail-3", "tail-4", "tail-5"),
    sound=(
        rain(-37),
        purr(-36, breath=4),
        gust(-40, at=3),
    ),
)
