"""Kneading: a cream cat with dark points treads a knitted blanket, left, right, left, its eyes smiling shut."""

from actions import Action, swap_unfolding
from motion import Breathe, Fade, Press, sway
from scene import Scene, part
from sound import purr, rustle

STEP = 2.4
WOOL = (sway("y", 1.5, STEP, 0.05),)
WHISKERS = (sway("turn", 1.5, STEP, 0.2),)

SCENE = Scene(
    name="3-kneading",
    drawing="scene-3-kneading.svg",
    seconds=12,
    parts=(
        part("leg-left", (820, 680), sway("y", 12, STEP)),
        part("leg-right", (984, 680), sway("y", 12, STEP, 0.5)),
        part("dent-left", (790, 826), Press(0.22, STEP)),
        part("dent-right", (1012, 800), Press(0.22, STEP, 0.5)),
        part("knit-row-2", (0, 0), *WOOL),
        part("knit-row-3", (0, 0), *WOOL),
        part("cat-body", (900, 830), Breathe(0.5, 1.6, 4)),
        part("cat-head", (896, 583), sway("x", 4, STEP, 0.08), sway("turn", 1.1, STEP, 0.08), sway("y", -2, 4, 0.3)),
        part("ear-left", (834, 422)),
        part("ear-right", (974, 429)),
        part("eyes-open", (899, 503)),
        part("whiskers-left", (830, 552), *WHISKERS),
        part("whiskers-right", (964, 559), *WHISKERS),
        part("tail-1", (1050, 730), sway("turn", 1.5, 6)),
        part("tail-2", (1178, 689), sway("turn", 3, 6, 0.08)),
        part("tail-3", (1232, 625), sway("turn", 4, 6, 0.16)),
        part("tail-4", (1240, 550), sway("turn", 6, 3, 0.2)),
        part("tail-5", (1211, 489), sway("turn", 9, 3, 0.28)),
        part("lamp", (330, 0), sway("turn", 0.5, 6)),
        part("lamp-glow", (330, 260), Fade(3, 6)),
    ),
    actions=(
        Action(2.1, "ear-left", "turn", 7, (0.2, 0.4, 0.4)),
        Action(6.8, "ear-right", "turn", -7, (0.2, 0.7, 0.4)),
        *swap_unfolding(8.6, 10.3, "eyes-happy", "eyes-open", 0.15),
    ),
    cat=("cat-body", "cat-head", "leg-left", "leg-right", "ear-left", "ear-right", "whiskers-left", "whiskers-right",
         "tail-1", "tail-2", "tail-3", "tail-4", "tail-5"),
    sound=(
        purr(-32, breath=4),
        rustle(-35, every=1.2),
    ),
)
