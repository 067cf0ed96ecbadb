"""Rain on the sill: a ginger tabby asleep on a leaf cushion stirs once, yawns, stretches a paw and sleeps on."""

from actions import Action
from motion import breath, fade, keys, poses, puff, sway, travel
from scene import Scene, part
from sound import gust, purr, rain

HEAD = (sway("y", -1.6, 4, 0.3), sway("turn", 0.4, 4, 0.3))
WHISKERS = (sway("turn", 1.2, 4, 0.3),)
EARLY_TWIG = (sway("turn", 1.4, 4, 0.1),)
LATE_TWIG = (sway("turn", 1.4, 4, 0.4),)
TOMATO = (sway("turn", 2, 4, 0.25),)


def runner(id, start, drawn):
    """A drop that runs down the pane, faster and faster, in three seconds; the drawing has it at y `drawn`."""
    return part(id, (0, 0),
                keys("y", *((start + s, -40 + 770 * (s / 3) ** 2 - drawn) for s in (0, 0.5, 1, 1.5, 2, 2.5, 3))),
                keys("opacity", (start - 0.05, -1), (start, 0), (start + 2.95, 0), (start + 3, -1)))


# A sleepy stir: a slit of one eye, a yawn, a paw reached out to us, and back to sleep.
LIFT, LOWER = (0.75, 0.75, 1.0), (0.45, 0.0, 0.5)
YAWN = (
    Action(5.7, "cat-head", "y", 3, LOWER),
    Action(5.7, "head-shadow", "y", 3, LOWER),
    Action(6.1, "ear-left", "turn", 6, (0.25, 0.5, 0.3)),
    Action(6.75, "cat-head", "y", -44, LIFT),
    Action(6.75, "head-shadow", "y", -30, LIFT),
    Action(6.75, "cat-head", "turn", -3.5, LIFT),
    Action(6.8, "cat-body", "scale_y", 0.022, (0.8, 0.6, 1.4)),
    Action(6.95, "skull", "skull-yawn", 1, (0.65, 0.75, 0.55)),
    Action(6.95, "face", "face-yawn", 1, (0.65, 0.75, 0.55)),
    Action(7.75, "face", "face-yawn", 0.09, (0.25, 0.1, 0.3)),
    Action(6.95, "ear-left", "turn", -13, (0.5, 0.9, 0.7)),
    Action(7.0, "ear-right", "turn", 13, (0.5, 0.9, 0.7)),
    Action(6.95, "ear-left", "scale_y", -0.16, (0.5, 0.9, 0.7)),
    Action(7.0, "ear-right", "scale_y", -0.16, (0.5, 0.9, 0.7)),
    Action(6.95, "whiskers-left", "turn", 17, (0.6, 0.8, 0.7)),
    Action(6.95, "whiskers-right", "turn", -17, (0.6, 0.8, 0.7)),
    Action(6.95, "whiskers-left", "y", -26, (0.6, 0.8, 0.6)),
    Action(6.95, "whiskers-right", "y", -26, (0.6, 0.8, 0.6)),
    Action(7.2, "paw-left", "paw-left-reach", 1, (0.7, 0.75, 1.0)),
    Action(7.7, "paw-left", "paw-left-spread", 1, (0.35, 0.45, 0.4)),
    Action(7.7, "paw-left", "paw-left-reach", -1, (0.35, 0.45, 0.4)),
    Action(7.4, "tail-4", "turn", 4, (0.7, 0.5, 0.9)),
    Action(7.5, "tail-5", "turn", 12, (0.7, 0.5, 0.9)),
    Action(9.15, "face", "face-yawn", 0.14, (0.16, 0.02, 0.2)),
    Action(9.6, "face", "face-yawn", 0.1, (0.16, 0.02, 0.22)),
    Action(9.2, "cat-head", "y", 4, (0.4, 0.1, 0.9)),
    Action(10.3, "ear-right", "turn", 6, (0.15, 0.05, 0.3)),
)

SCENE = Scene(
    name="1-rain-on-the-sill",
    drawing="scene-1-rain.svg",
    seconds=16,
    parts=(
        part("cat-body", (960, 772), breath("scale_x", 0.006, 4), breath("scale_y", 0.018, 4)),
        part("haunch", (1145, 760), breath("scale_x", 0.004, 4, 0.05), breath("scale_y", 0.01, 4, 0.05)),
        part("cat-head", (836, 726), *HEAD),
        part("head-shadow", (805, 710), *HEAD),
        part("ear-left", (741, 603)),
        part("ear-right", (858, 593)),
        part("eyes", (0, 0), poses(
            (5.85, None), (6.0, "eyes-wake"), (6.45, "eyes-slit"), (6.95, "eyes-slit"), (7.4, "eyes-squeezed"),
            (8.2, "eyes-squeezed"), (8.65, None))),
        part("whiskers-left", (751, 712), *WHISKERS),
        part("whiskers-right", (867, 702), *WHISKERS),
        part("tail-3", (1052, 795)),
        part("tail-4", (967, 785)),
        part("tail-5", (922, 775)),
        part("rain-far", (0, 0), travel("x", 0, -78, 1.6), travel("y", 0, 780, 1.6)),
        part("rain-near", (0, 0), travel("x", 0, -78, 0.8), travel("y", 0, 780, 0.8)),
        runner("runner-1", 0.5, drawn=254),
        runner("runner-2", 3, drawn=424),
        runner("runner-3", 5.5, drawn=164),
        runner("runner-4", 8, drawn=354),
        runner("runner-5", 10.5, drawn=134),
        runner("runner-6", 12.8, drawn=284),
        part("steam-1", (446, 594), *puff(14, -34, 4)),
        part("steam-2", (446, 594), *puff(14, -34, 4, 0.5)),
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
        part("lamp-glow", (0, 0), fade(0.03, 8)),
    ),
    actions=(
        Action(3, "ear-right", "turn", 9, (0.25, 0.9, 0.5)),
        Action(5, "house-1-window-2", "opacity", -0.8, (0.3, 6, 0.3)),
        *YAWN,
        Action(12.6, "tail-3", "turn", 4, (0.7, 0.3, 0.9)),
        Action(12.7, "tail-4", "turn", 9, (0.7, 0.3, 0.9)),
        Action(12.8, "tail-5", "turn", 12, (0.7, 0.3, 0.9)),
        # A dream: the paw and the whiskers twitch.
        Action(14.9, "paw-left", "paw-left-reach", 0.08, (0.1, 0.0, 0.14)),
        Action(15.2, "paw-left", "paw-left-reach", 0.1, (0.1, 0.02, 0.2)),
        Action(15.0, "whiskers-left", "turn", 5, (0.12, 0.1, 0.25)),
    ),
    cat=("cat-body", "haunch", "cat-head", "ear-left", "ear-right", "whiskers-left", "whiskers-right",
         "tail-3", "tail-4", "tail-5", "paw-left"),
    sound=(
        rain(-37),
        purr(-36, breath=4),
        gust(-40, at=3),
    ),
)
