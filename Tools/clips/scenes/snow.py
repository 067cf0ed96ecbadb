"""First snow: a black cat seen from behind at an arched window. It follows one big flake down, looks round at us over
its shoulder, blinks slowly, turns back and leaves a breath on the pane."""

from actions import Action
from motion import breath, fade, frames, keys, poses, puff, sway, travel
from scene import Scene, part
from sound import crackle, purr, sigh, wind

# Where the head looks: out of the window, 1 a little to the left, 2 left, 3 in profile, 4 at us, 5 with eyes shut.
GAZE = poses((3.7, None), (4.6, "cat-head-1"), (8.1, "cat-head-1"), (8.42, "cat-head-2"), (8.56, "cat-head-3"),
             (9.0, "cat-head-4"), (9.7, "cat-head-4"), (10.2, "cat-head-5"), (10.5, "cat-head-5"),
             (11.15, "cat-head-4"), (11.55, "cat-head-4"), (12.08, "cat-head-3"), (12.24, "cat-head-2"),
             (13.5, "cat-head-2"), (14.2, "cat-head-1"), (14.9, None))
BREATH = (keys("opacity", (12.45, 0), (13.3, 1), (13.6, 1), (15.9, 0)),
          keys("scale", (12.45, -0.5), (13.4, 0), (15.9, -0.12), (15.98, -0.5)))

SCENE = Scene(
    name="6-first-snow",
    drawing="scene-6-snow.svg",
    seconds=16,
    parts=(
        part("snow-far-1", (0, 0), travel("y", 0, 800, 16), sway("x", 12, 8)),
        part("snow-far-2", (0, 0), travel("y", 0, 800, 16), sway("x", 12, 8, 0.5)),
        part("snow-mid-1", (0, 0), travel("y", 0, 800, 8), sway("x", 20, 4)),
        part("snow-mid-2", (0, 0), travel("y", 0, 800, 8), sway("x", 20, 4, 0.45)),
        part("snow-near-1", (0, 0), travel("y", 0, 800, frames(160)), sway("x", 30, frames(160))),
        part("snow-near-2", (0, 0), travel("y", 0, 800, 4), sway("x", 34, 4, 0.4)),
        part("big-flake", (880, -60), sway("x", 44, 3.2, 0.1),
             keys("x", (2.6, -40), (8.2, 46), (10, -40)),
             keys("y", (2.6, 0), (8.2, 770), (9.6, 770), (10, 0)),
             keys("turn", (2.6, 0), (8.2, 220), (9.6, 220), (10, 0)),
             keys("opacity", (2.6, 0), (2.9, 1), (7.9, 1), (8.6, 0))),
        part("smoke", (838, 500), *puff(8, -16, 4), sway("smoke-1", 1, 4), sway("smoke-2", 1, 4, -0.25)),
        part("cat-body", (1190, 806), breath("cat-body-in", 1, 4),
             keys("cat-body-twist", (3.7, 0), (4.8, 0.3), (8.1, 0.3), (9.15, 1), (11.5, 1), (12.7, 0.5), (15, 0))),
        part("cat-head", (1190, 452), GAZE, sway("turn", 0.6, 8), breath("y", -4, 4, 0.06),
             keys("turn", (3.5, 0), (4.5, 6), (5.1, 6), (7.6, -5), (8, -5), (9.1, 3.2), (9.8, 2.6), (10.25, 4.2),
                  (11, 2.6), (11.6, 2.6), (12.5, -1.5), (12.75, -3.2), (13.5, -1), (14.9, 0)),
             keys("y", (3.6, 0), (4.5, -5), (7.6, 4), (8.1, 4), (8.55, -3), (9.1, 3), (10.25, 6), (11, 3), (12, -2),
                  (12.7, 4), (14, 0)),
             keys("x", (3.6, 0), (4.6, -4), (8.1, -4), (9.1, -12), (11.6, -12), (12.6, -9), (13.6, -8), (14.9, 0))),
        part("ear-left", (1124, 322)),
        part("ear-right", (1256, 322)),
        part("whiskers-behind", (1190, 420), keys("opacity", (8.62, 0), (8.85, -1), (11.8, -1), (12.05, 0))),
        part("whiskers-front", (1190, 420), keys("opacity", (8.5, 0), (8.75, 1), (11.9, 1), (12.1, 0))),
        part("tail", (1300, 780), sway("tail-wave-1", 0.75, 4), sway("tail-wave-2", 0.75, 4, -0.25),
             keys("tail-flick", (1.8, 0), (2.15, 0.5), (2.7, 0), (4.9, 0), (5.15, 0.9), (5.5, -0.2), (5.8, 0.8),
                  (6.2, -0.1), (6.5, 0.9), (7.3, 0), (13.4, 0), (13.8, 0.5), (14.5, 0)),
             keys("tail-curl", (8.4, 0), (9.5, 0.9), (11.4, 0.9), (12.9, 0))),
        part("candle-flame", (330, 652), sway("turn", 3, 3.2), sway("turn", 1.6, 1.6, 0.3),
             breath("scale_x", -0.03, 1.6), breath("scale_y", 0.08, 1.6)),
        part("candle-core", (330, 652), sway("turn", 2, 1.6, 0.2)),
        part("candle-halo", (330, 630), fade(0.24, 3.2), fade(0.14, 1.6, 0.3), breath("scale", 0.06, 1.6, 0.1)),
        part("fog", (1034, 432), *BREATH),
        part("pine-2", (636, 690), sway("turn", 0.6, 8, 0.3)),
        part("pine-4", (1346, 690), sway("turn", 0.6, 8)),
    ),
    actions=(
        Action(1.2, "ear-right", "turn", 8, (0.2, 0.7, 0.4)),
        Action(2.4, "house-1-window", "opacity", -0.55, (0.6, 2, 0.6)),
        Action(3.3, "ear-left", "turn", -8, (0.2, 0.6, 0.4)),
        Action(4.9, "ear-right", "turn", -6, (0.2, 0.5, 0.4)),
        Action(6.3, "candle-flame", "turn", 12, (0.5, 0.6, 0.8)),
        Action(13.9, "candle-flame", "turn", -8, (0.4, 0.4, 0.7)),
        Action(14.9, "ear-right", "turn", 6, (0.12, 0.1, 0.35)),
    ),
    cat=("cat-body", "cat-head", "ear-left", "ear-right", "tail", "whiskers-behind"),
    sound=(
        wind(-38),
        crackle(-32),
        purr(-38, breath=4),
        sigh(-40, at=12.4),
    ),
)
