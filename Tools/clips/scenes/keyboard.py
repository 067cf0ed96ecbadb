"""Warm keyboard: a grey tabby asleep on a laptop at night. In its sleep it stretches a paw onto a key; paw prints walk
over the screen, one eye looks after them and closes again."""

from actions import Action
from motion import breath, fade, frames, keys, poses, puff, sway, travel
from scene import Scene, part
from sound import city, fan, purr, sigh, tap

HEAD = (breath("y", -4.2, 4, 0.06), sway("turn", 0.5, 4, 0.3),
        keys("y", (9.7, 0), (10.9, -4), (11.1, -4), (12.9, 3), (14.2, 0)),
        keys("turn", (5.1, 0), (6.2, -1.6), (8.2, -1.6), (8.9, 0.6), (9.9, 0), (10.9, -1), (12.9, 0.8), (14.2, 0)))
WHISKERS = (sway("turn", 1.6, 4, 0.3),)
TRAIN = (travel("x", 0, 3060, 16),)
STEPS = ((647, 535), (711, 546), (758, 497), (819, 519), (875, 489), (927, 526), (987, 507), (1043, 539), (1096, 506),
         (1154, 519), (1196, 471), (1275, 486))


def dark(start, window, seconds):
    """One window of the city goes dark for a while."""
    return Action(start, window, "opacity", -0.85, (0.25, seconds, 0.25))


def paw_print(n, middle):
    """A step of the walk over the screen: there in a moment, gone slowly."""
    down, gone = 6.75 + 0.21 * n, 9.7 + 0.13 * n
    return part(f"print-{n + 1}", middle, keys("scale", (down, -0.35), (down + 0.2, 0), (12.5, 0), (13.5, -0.35)),
                keys("opacity", (down, 0), (down + 0.13, 1), (gone, 1), (gone + 1, 0)))


SCENE = Scene(
    name="5-warm-keyboard",
    drawing="scene-5-keyboard.svg",
    seconds=16,
    parts=(
        part("cat-body", (980, 858), breath("cat-body-in", 1, 4),
             keys("cat-body-in", (9.6, 0), (10.8, 1.15), (11.0, 1.15), (12.9, -0.35), (14.0, 0))),
        part("cat-head", (878, 825), *HEAD),
        part("chin-shadow", (878, 825), breath("opacity", -0.12, 4, 0.06)),
        part("ear-left", (778, 673)),
        part("ear-right", (912, 664)),
        part("eye-right", (908, 745), keys("eye-right-wake", (7.6, 0), (7.72, 0.3), (7.88, 0)),
             poses((8.0, None), (8.14, "eye-right-wake"), (8.5, "eye-right-open"), (9.2, "eye-right-open"),
                   (9.62, "eye-right-wake"), (9.8, None))),
        part("pupil-peep", (907, 740), keys("y", (0, -3)),
             keys("x", (8.2, -9), (8.75, -7), (9.2, 8), (9.7, 8), (12, -9))),
        part("arm-left", (780, 842), poses(
            (4.7, None), (5.2, "arm-left-tuck"), (6.05, "arm-left-reach"), (6.35, "arm-left-spread"),
            (6.9, "arm-left-spread"), (7.7, "arm-left-reach"), (9.0, "arm-left-reach"), (9.95, "arm-left-tuck"),
            (11.2, None)),
             keys("y", (6.25, 0), (6.45, -4), (6.58, 4), (6.9, 4), (7.3, 1), (8.8, 1), (9.4, 0))),
        part("arm-right", (900, 842), keys(
            "arm-right-flex", (1.4, 0), (1.6, 0.8), (1.8, 0.1), (2.0, 0.7), (2.35, 0), (5.6, 0), (6.3, 0.9), (7.2, 0.8),
            (8.2, 0), (13.3, 0), (13.6, 0.7), (14.3, 0))),
        part("key-press", (658, 812), keys("y", (6.5, 0), (6.58, 4.5), (8.9, 4.5), (9.15, 0))),
        part("key-glow", (658, 812), keys("opacity", (6.5, 0), (6.62, 1), (7.2, 0.6), (8.9, 0.6), (9.6, 0))),
        part("whiskers-left", (789, 798), *WHISKERS),
        part("whiskers-right", (918, 789), *WHISKERS),
        part("nose-mouth", (853, 787), sway("y", -0.9, 4, 0.35), keys("scale_x", (12, 0), (12.8, 0.1), (14, 0))),
        part("tail", (1330, 850), sway("tail-wave-1", 0.42, 4), sway("tail-wave-2", 0.42, 4, -0.25),
             keys("tail-curl", (2.9, 0), (3.6, 0.8), (4.3, 0), (11.6, 0), (12.4, 0.55), (12.9, 0.65), (14.2, 0)),
             keys("tail-lift", (11.8, 0), (12.5, 0.5), (12.9, 0.35), (14.0, 0))),
        part("stars-1", (0, 0), fade(0.45, 4)),
        part("stars-2", (0, 0), fade(0.45, frames(160), 0.4)),
        part("stars-3", (0, 0), fade(0.45, 8, 0.7)),
        part("cloud-1", (0, 0), sway("x", 110, 16)),
        part("cloud-2", (0, 0), sway("x", -120, 16, 0.2)),
        part("cloud-3", (0, 0), sway("x", 130, 16, 0.55)),
        part("plane", (0, 0), travel("x", 0, 2040, 16), travel("y", 0, -60, 16)),
        part("plane-light", (-49, 144), fade(0.85, 2)),
        part("train", (0, 0), *TRAIN),
        part("train-light", (0, 0), *TRAIN),
        part("plant-leaves", (300, 686), sway("turn", 1.1, 8)),
        part("plant-leaf-1", (300, 670), sway("turn", 1.6, 4, 0.1)),
        part("plant-leaf-2", (300, 680), sway("turn", 2, 4, 0.3)),
        part("plant-leaf-3", (300, 680), sway("turn", 2, 4, 0.45)),
        part("plant-leaf-4", (300, 690), sway("turn", 2.2, 4, 0.2)),
        part("plant-leaf-5", (300, 690), sway("turn", 2.2, 4, 0.6)),
        part("steam-1", (1640, 600), *puff(14, -30, 4), sway("steam-1-1", 1, 4), sway("steam-1-2", 1, 4, -0.25)),
        part("steam-2", (1650, 600), *puff(14, -30, 4, 0.5), sway("steam-2-1", 1, 4, 0.4),
             sway("steam-2-2", 1, 4, 0.15)),
        part("screen-glow", (960, 480), fade(0.09, 4, 0.2),
             keys("opacity", (6.5, 0), (6.9, 0.3), (9.6, 0.22), (11.5, 0))),
        part("dial", (960, 374), breath("y", -3, 4, 0.1), sway("turn", 1.2, 8)),
        part("dial-eyes", (960, 374), keys("x", (6.9, -8), (9.0, 8), (9.9, 8), (10.4, -8)),
             keys("opacity", (6.87, 0), (6.9, 1), (10.07, 1), (10.1, 0)),
             keys("scale_y", (6.9, -0.88), (7.1, 0), (9.9, 0), (10.1, -0.88))),
        part("dial-eyes-shut", (960, 374), keys("opacity", (6.87, 0), (6.9, -1), (10.07, -1), (10.1, 0))),
        *(paw_print(n, middle) for n, middle in enumerate(STEPS)),
    ),
    actions=(
        dark(0.4, "windows-16/3", 5),
        dark(1.1, "windows-4/2", 6),
        Action(1.5, "ear-left", "turn", -6, (0.15, 0.05, 0.3)),
        dark(2.2, "windows-12/4", 7),
        Action(2.05, "ear-left", "turn", 7, (0.12, 0.05, 0.35)),
        dark(3.5, "windows-14/3", 9),
        dark(4.3, "windows-2/5", 5),
        Action(5.2, "whiskers-left", "turn", 4, (0.2, 0.3, 0.4)),
        dark(5.1, "windows-10/3", 6.2),
        Action(7.0, "ear-right", "turn", 10, (0.25, 2.1, 0.5)),
        Action(7.25, "ear-left", "turn", 5, (0.25, 1.6, 0.5)),
        dark(7.3, "windows-15/1", 4),
        dark(8.4, "windows-3/2", 3.5),
        dark(9.4, "windows-13/4", 4.5),
        Action(11.2, "ear-left", "turn", -4, (0.8, 0.8, 0.9)),
        Action(11.3, "ear-right", "turn", 4, (0.8, 0.8, 0.9)),
        dark(11.1, "windows-12/1", 3),
        Action(12.6, "whiskers-right", "turn", -3, (0.2, 0.3, 0.4)),
        dark(12.4, "windows-1/2", 2.4),
        Action(14.6, "ear-right", "turn", 7, (0.12, 0.08, 0.4)),
    ),
    cat=("cat-body", "cat-head", "ear-left", "ear-right", "arm-left", "whiskers-left", "whiskers-right",
         "nose-mouth", "pupil-peep"),
    sound=(
        fan(-41),
        city(-42),
        purr(-36, breath=4),
        tap(-35, at=6.5),
        sigh(-36, at=10.9),
    ),
)
