"""The fish: a tuxedo cat beside a round bowl; its eyes lead, its head follows half a second later."""

from actions import Action, blink
from motion import Breathe, Fade, Flap, Mirror, Puff, cosine, frames, sway
from scene import Scene, part
from sound import burble, chirp, clock

BREATH = frames(100)
FIN = (sway("turn", 9, 1),)
PUPIL = (cosine("x", 6, 10, 0.015, offset=6), sway("y", 1.5, 5, 0.03))
WHISKERS = (sway("turn", 1, BREATH, 0.3),)
WEED = (sway("turn", 4, BREATH, 0.2),)

SCENE = Scene(
    name="2-the-fish",
    drawing="scene-2-fish.svg",
    seconds=10,
    parts=(
        part("fish", (690, 630), cosine("x", 84, 10, offset=-40), sway("y", 12, 5), Mirror(10)),
        part("fish-tail", (740, 630), Flap(0.35, frames(20))),
        part("fish-fin-side", (676, 638), *FIN),
        part("fish-fin-top", (702, 600), *FIN),
        part("pupil-left", (1090, 401), *PUPIL),
        part("pupil-right", (1202, 387), *PUPIL),
        part("cat-head", (1175, 462), cosine("turn", 2, 10, 0.05), sway("y", -1.5, BREATH, 0.3)),
        part("cat-body", (1188, 806), Breathe(0.5, 1.5, BREATH)),
        part("ear-left", (1078, 321)),
        part("ear-right", (1212, 304)),
        part("paw-left", (1132, 770)),
        part("whiskers-left", (1096, 445), *WHISKERS),
        part("whiskers-right", (1225, 429), *WHISKERS),
        part("tail-1", (1300, 760), sway("turn", 1, 10)),
        part("tail-2", (1407, 791), sway("turn", 3, 5, 0.06)),
        part("tail-3", (1480, 782), sway("turn", 5, 5, 0.14)),
        part("tail-4", (1528, 737), sway("turn", 8, 5, 0.22)),
        part("tail-5", (1532, 679), sway("turn", 11, 5, 0.3)),
        part("weed-1", (540, 750), *WEED),
        part("weed-2", (566, 752), *WEED),
        part("water", (650, 520), sway("x", 14, 5)),
        part("bubble-1", (610, 600), Puff(0, -70, 5)),
        part("bubble-2", (600, 566), Puff(0, -40, BREATH, 0.3)),
        part("bubble-3", (616, 540), Puff(0, -18, 2.5, 0.6)),
        part("lamp-glow", (1560, 180), Fade(3, 10)),
    ),
    actions=(
        Action(1.2, "ear-right", "turn", 7, (0.2, 0.5, 0.3)),
        *blink(2.6),
        Action(5.6, "ear-left", "turn", -8, (0.2, 0.6, 0.4)),
        *blink(7.9),
        Action(8.4, "paw-left", "y", -6, (0.3, 0.3, 0.4)),
    ),
    cat=("cat-body", "cat-head", "pupil-left", "pupil-right", "ear-left", "ear-right", "paw-left",
         "whiskers-left", "whiskers-right", "tail-1", "tail-2", "tail-3", "tail-4", "tail-5"),
    sound=(
        burble(-38),
        clock(-45, every=2.5),
        chirp(-35, at=5.6),
    ),
)
