"""First snow: a black cat seen from behind at an arched window; its ears and head tell what it looks at."""

from actions import Action
from motion import Breathe, Fade, Travel, frames, sway
from scene import Scene, part
from sound import crackle, purr, wind

WHISKERS = (sway("turn", 1, 4, 0.3),)
EARLY_PINE = (sway("turn", 0.4, 8),)
LATE_PINE = (sway("turn", 0.4, 8, 0.3),)

SCENE = Scene(
    name="6-first-snow",
    drawing="scene-6-snow.svg",
    seconds=16,
    parts=(
        part("snow-far", (960, 0), Travel(0, 800, 16), sway("x", 10, 8)),
        part("snow-mid", (960, 0), Travel(0, 800, 8), sway("x", 16, 4)),
        part("snow-near", (960, 0), Travel(0, 800, frames(160)), sway("x", 22, frames(160))),
        part("cat-body", (1130, 806), Breathe(0.5, 1.5, 4)),
        part("cat-head", (1130, 440), sway("turn", 0.7, 8), sway("y", -1.8, 4, 0.3)),
        part("ear-left", (1068, 308)),
        part("ear-right", (1192, 308)),
        part("whiskers-left", (1010, 408), *WHISKERS),
        part("whiskers-right", (1250, 408), *WHISKERS),
        part("tail-1", (1160, 770), sway("turn", 2, 4)),
        part("tail-2", (1200, 819), sway("turn", 3, 4, 0.06)),
        part("tail-3", (1208, 870), sway("turn", 4, 4, 0.12)),
        part("tail-4", (1223, 913), sway("turn", 5, 4, 0.18)),
        part("tail-5", (1258, 939), sway("turn", 7, 4, 0.24)),
        part("candle-flame", (330, 652), sway("turn", 3, 3.2), Breathe(-2, 5, 1.6)),
        part("candle-core", (330, 652), sway("turn", 2, 1.6, 0.2)),
        part("candle-glow", (330, 640), Fade(4, 3.2)),
        part("pine-1", (480, 660), *EARLY_PINE),
        part("pine-2", (620, 682), *LATE_PINE),
        part("pine-3", (1460, 656), *LATE_PINE),
        part("pine-4", (1330, 680), *EARLY_PINE),
    ),
    actions=(
        Action(4.2, "ear-left", "turn", -9, (0.2, 1.4, 0.4)),
        Action(4.5, "cat-head", "turn", -3.5, (0.7, 1.6, 0.9)),
        Action(8, "candle-flame", "turn", 12, (0.5, 0.6, 0.8)),
        Action(10.6, "ear-right", "turn", 9, (0.2, 1.2, 0.4)),
        Action(10.9, "cat-head", "turn", 3, (0.7, 1.4, 0.9)),
        Action(12.5, "house-1-window", "opacity", 0.4, (0.4, 2, 0.4)),
    ),
    cat=("cat-body", "cat-head", "ear-left", "ear-right", "whiskers-left", "whiskers-right",
         "tail-1", "tail-2", "tail-3", "tail-4", "tail-5"),
    sound=(
        wind(-38),
        crackle(-32),
        purr(-38, breath=4),
    ),
)
