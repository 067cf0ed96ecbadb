"""Warm keyboard: a grey tabby asleep on a laptop at night; a paw twitches at a dream."""

from actions import Action
from motion import Breathe, Fade, Revolve, frames, sway
from scene import Scene, part
from sound import city, fan, purr, tap

HEAD = (sway("y", -1.8, 4, 0.3), sway("turn", 0.5, 4, 0.3))
WHISKERS = (sway("turn", 1.2, 4, 0.3),)


def lights_out(start, window, seconds):
    """One window of the city goes dark for a while."""
    return Action(start, window, "opacity", 0.15, (0.1, seconds, 0.1))


SCENE = Scene(
    name="5-warm-keyboard",
    drawing="scene-5-keyboard.svg",
    seconds=16,
    parts=(
        part("cat-body", (980, 858), Breathe(0.6, 1.8, 4)),
        part("cat-head", (878, 805), *HEAD),
        part("head-shadow", (850, 810), *HEAD),
        part("ear-left", (778, 653)),
        part("ear-right", (912, 644)),
        part("paw-right", (964, 836)),
        part("whiskers-left", (789, 778), *WHISKERS),
        part("whiskers-right", (918, 769), *WHISKERS),
        part("nose-mouth", (853, 767), sway("y", -0.8, 4, 0.35)),
        part("tail-1", (1190, 806), sway("turn", 0.6, 8)),
        part("tail-2", (1300, 828), sway("turn", 1, 8, 0.06)),
        part("tail-3", (1289, 863), sway("turn", 1.4, 8, 0.12)),
        part("tail-4", (1222, 864), sway("turn", 2, 8, 0.18)),
        part("tail-5", (1162, 860), sway("turn", 3, 8, 0.24)),
        part("dial-arc", (960, 392), Revolve(16)),
        part("stars-1", (0, 0), Fade(35, 4)),
        part("stars-2", (0, 0), Fade(35, frames(160), 0.4)),
        part("stars-3", (0, 0), Fade(35, 8, 0.7)),
        part("plant-leaves", (300, 686), sway("turn", 0.8, 8)),
        part("screen-glow", (960, 480), Fade(4, 8)),
    ),
    actions=(
        lights_out(1, "windows-4/2", 6),
        Action(3.4, "ear-left", "turn", 8, (0.15, 0.15, 0.3)),
        lights_out(3.5, "windows-14/3", 9),
        lights_out(5.1, "windows-8/5", 6.2),
        Action(6, "paw-right", "turn", -6, (0.12, 0.05, 0.12)),
        Action(6.2, "whiskers-left", "turn", 4, (0.15, 0.2, 0.3)),
        Action(6.4, "paw-right", "turn", -7, (0.12, 0.05, 0.14)),
        Action(6.8, "paw-right", "turn", -4, (0.12, 0.05, 0.2)),
        lights_out(7.2, "windows-2/5", 5),
        lights_out(9, "windows-16/2", 4),
        Action(10.1, "ear-right", "turn", 9, (0.2, 0.5, 0.4)),
        Action(12.4, "tail-4", "turn", 6, (0.6, 0.3, 0.9)),
        Action(12.5, "tail-5", "turn", 10, (0.6, 0.3, 0.9)),
    ),
    cat=("cat-body", "cat-head", "ear-left", "ear-right", "paw-right", "whiskers-left", "whiskers-right",
         "nose-mouth", "tail-1", "tail-2", "tail-3", "tail-4", "tail-5"),
    sound=(
        fan(-41),
        city(-42),
        purr(-36, breath=4),
        tap(-35, at=6.0),
    ),
)
