"""Box and butterfly: a butterfly lands on the nose of a calico in a carton. It squints, holds its breath, sneezes, hides behind
the rim until only eyes and ears show, and rises again."""

from actions import blink
from butterfly import Flight, Piece
from motion import breath, fade, frames, keys, poses, sway, through
from scene import Scene, part
from sound import birds, chirp, scrape, sneeze

BREATH = 3.5
LANDS = 5.2
SNEEZE = 7.8

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

# The butterfly: drawn at (585, 290), where it is when the clip begins.
DRAWN = (585, 290)
NOSE = (915, 452)  # where its middle is while it sits
PATH = ((0, 585, 290), (0.7, 640, 206), (1.3, 704, 262), (2.0, 866, 142), (2.6, 1000, 168), (3.05, 1072, 122),
        (3.5, 1062, 208), (4.0, 984, 236), (4.4, 968, 330), (4.8, 918, 386), (LANDS, *NOSE), (LANDS + 0.1, 915, 457),
        (LANDS + 0.4, *NOSE), (6.8, 915, 450), (SNEEZE - 0.12, 920, 422), (SNEEZE - 0.02, 916, 430),
        (SNEEZE + 0.12, 852, 392), (SNEEZE + 0.5, 640, 196), (SNEEZE + 0.9, 540, 230), (9.3, 452, 190), (9.9, 396, 268),
        (10.5, 440, 356), (11.1, 530, 318), (11.7, 596, 372), (12.3, 548, 282), (12.8, 470, 246), (13.4, 500, 318))
HEADING = through((0, -30), (1.0, -20), (2.2, 10), (2.9, 40), (3.5, 150), (4.2, 200), (4.7, 240), (LANDS, 263),
               (LANDS + 0.3, 266), (6.4, 262), (SNEEZE - 0.1, 266), (SNEEZE + 0.3, 205), (9.0, 200), (9.6, 160),
               (10.2, 60), (10.8, 0), (11.4, -20), (11.9, 30), (12.3, 150), (12.8, 190), (13.2, 120), (13.6, 20))
CLIMB = through((0, 42), (0.7, 20), (1.4, 50), (2.3, 25), (3.0, 48), (3.7, 10), (4.4, -8), (4.9, 30), (LANDS, 58),
             (SNEEZE - 0.1, 60), (SNEEZE + 0.12, 74), (8.7, 30), (9.3, 46), (10.2, 4), (10.9, 44), (11.5, 14),
             (12.2, 52), (12.9, 26), (13.5, 8))
BANK = through((0, -14), (0.9, 16), (1.8, -12), (2.8, 30), (3.4, 38), (4.2, -10), (LANDS, 0), (SNEEZE - 0.1, 0),
            (SNEEZE + 0.25, 40), (8.9, -12), (9.6, 22), (10.2, 36), (10.9, -14), (11.6, -32), (12.2, 36), (12.9, -10),
            (13.5, 12))
TUMBLE = (SNEEZE + frames(1), SNEEZE + frames(17))
FLIGHT = Flight(
    beats=42, gusts=((0.85, 2.8), (0.3, 1.75)), heading=HEADING, climb=CLIMB, bank=BANK,
    sits=through((LANDS - 0.5, 0), (LANDS - 0.14, 1), (SNEEZE - 0.1, 1), (SNEEZE + 0.1, 0)))

GAZE_X = ((0, -3), (0.7, -2), (1.4, 0), (2.1, 6), (3.05, 13), (3.7, 12), (4.4, 6))
AFTER_X = ((SNEEZE + 0.5, -7), (9.3, -8), (10.4, -9), (11.1, -5), (11.7, -3), (12.4, -5), (13.0, -7), (13.5, -5))
PUPIL_Y = keys("y", (0, -1), (1.3, -4), (2.1, -8), (3.05, -8), (4.0, -4), (4.8, 4), (LANDS, 9), (6.2, 10), (7.2, 9),
               (SNEEZE, 9), (SNEEZE + 0.5, -6), (9.4, -8), (10.5, -4), (11.8, 0), (12.8, -2), (13.5, 0))
PUPIL_SIZE = keys("scale", (4.4, 0), (LANDS, 0.12), (7.2, 0.12), (SNEEZE, 0), (8.4, 0.16), (10.8, 0.1),
                  (12.4, 0))
LOOK = (
    keys("x", (0, -4), (0.4, -4), (1.6, -2), (2.3, 2), (3.3, 12), (4.0, 12), (4.9, 2), (LANDS, 0), (SNEEZE + 0.15, 0),
         (8.5, -10), (9.6, -12), (10.6, -13), (11.5, -9), (12.4, -4), (13.3, -6)),
    keys("y", (0, -2), (1.5, -5), (2.3, -8), (3.3, -9), (4.3, -4), (LANDS, 1), (6.8, 0), (SNEEZE - 0.2, -8),
         (SNEEZE + 0.08, 10), (8.3, -2), (9.6, -7), (11.0, -4), (12.4, -2)),
)
# When the eyes are pinched shut; from one frame to the next.
PINCHED = ((SNEEZE - 0.1, 0), (SNEEZE - 0.1 + frames(1), 1), (SNEEZE + 0.4, 1), (SNEEZE + 0.4 + frames(1), 0))


def spray(id, dx, dy, seconds):
    """One drop of the sneeze."""
    end = SNEEZE + seconds
    return part(id, (916, 510),
                keys("opacity", (SNEEZE + 0.02, 0), (SNEEZE + 0.1, 1), (SNEEZE + seconds * 0.6, 0.9), (end, 0)),
                keys("x", (SNEEZE, 0), (end, dx), (end + 0.2, 0)),
                keys("y", (SNEEZE - 0.2, 0), (SNEEZE, 36), (end, 36 + dy), (end + 0.2, 0)))


SPRAY = tuple(spray(f"sneeze-{k}", dx, dy, seconds) for k, (dx, dy, seconds) in enumerate((
    (-150, 56, 0.56), (-20, 110, 0.5), (-250, 6, 0.6), (120, 76, 0.54), (-74, 128, 0.48), (-300, -56, 0.56)), 1))

SCENE = Scene(
    name="4-box-and-butterfly",
    drawing="scene-4-box.svg",
    seconds=14,
    parts=(
        part("butterfly", DRAWN, keys("x", *((t, x - DRAWN[0]) for t, x, _ in PATH)),
             keys("y", *((t, y - DRAWN[1]) for t, _, y in PATH)), FLIGHT.heave(),
             keys("turn", (TUMBLE[0], 0), (TUMBLE[1], -360), (TUMBLE[1] + 0.001, 0)),
             keys("scale", (0, 0), (3.2, 0.02), (LANDS, 0), (SNEEZE, 0), (8.6, -0.04), (10.2, 0.04), (11.7, -0.04))),
        part("butterfly-body", DRAWN, Piece(FLIGHT)),
        part("wing-left-far", DRAWN, Piece(FLIGHT, -1, far=True)),
        part("wing-right-far", DRAWN, Piece(FLIGHT, 1, far=True)),
        part("wing-left-near", DRAWN, Piece(FLIGHT, -1)),
        part("wing-right-near", DRAWN, Piece(FLIGHT, 1)),
        part("pupil-left", (850, 427),
             keys("x", *GAZE_X, (LANDS, 17), (6.2, 19), (7.3, 19), (SNEEZE, 17), *AFTER_X), PUPIL_Y, PUPIL_SIZE),
        part("pupil-right", (976, 436),
             keys("x", *GAZE_X, (LANDS, -6), (6.2, -9), (7.3, -9), (SNEEZE, -6), *AFTER_X), PUPIL_Y, PUPIL_SIZE),
        part("lids", (0, 0), poses((6.9, None), (7.3, "lids-half"), (7.5, "lids-half"),
                                    (7.7, "lids-shut"), (SNEEZE + 0.5, "lids-shut"), (SNEEZE + 0.66, None))),
        part("eyes-open", (0, 0), keys("opacity", *((t, -v) for t, v in PINCHED))),
        part("eyes-shut", (0, 0), keys("opacity", *PINCHED)),
        part("face", (0, 0), *LOOK),
        part("muzzle", (0, 0), *LOOK),
        part("nose", (916, 485), keys("y", (6.3, 0), (6.42, -3), (6.55, 0), (6.68, -3), (6.82, 0), (7.0, -4),
                                      (7.12, 0), (7.3, -5), (7.6, -6), (SNEEZE, 2), (8.3, 0))),
        part("mouth", (0, 0), poses((7.05, None), (7.6, "mouth-o"), (SNEEZE - 0.02, "mouth-o"),
                                     (SNEEZE + 0.1, None))),
        part("cat-head", (922, 545), sway("y", -2, BREATH, 0.3),
             keys("turn", (0, -1.5), (1.5, -1), (2.3, 1), (3.3, 4), (4.1, 4), (LANDS, 0), (6.8, 0), (SNEEZE - 0.12, 2.5),
                  (SNEEZE + 0.08, -7), (SNEEZE + 0.4, -3), (8.5, -2), (10.4, -3.5), (11.6, -2), (12.6, 0.5), (13.4, -1)),
             keys("y", (LANDS - 0.06, 0), (LANDS + 0.1, 5), (LANDS + 0.4, 0), (6.8, -2), (SNEEZE - 0.12, -22),
                  (SNEEZE + 0.08, 42), (SNEEZE + 0.32, 22), (8.5, 30), (9.3, 130), (9.6, 122), (10.3, 125), (11.2, 120),
                  (12.2, -8), (12.6, 0)),
             keys("x", (0, 0), (3.3, 5), (LANDS, 0), (SNEEZE - 0.12, 6), (SNEEZE + 0.08, -14), (8.5, -6), (10.2, -8),
                  (12.2, 0)),
             keys("scale_y", (0, 0), (SNEEZE - 0.1, 0.03), (SNEEZE + 0.06, -0.07), (SNEEZE + 0.3, 0.02), (8.5, 0))),
        part("cat-body", (940, 868), breath("scale_x", 0.004, BREATH), breath("scale_y", 0.014, BREATH),
             keys("scale_y", (LANDS, 0), (5.8, 0.015), (7.0, 0.02), (SNEEZE - 0.12, 0.045), (SNEEZE + 0.08, -0.03),
                  (8.5, -0.02), (9.6, 0)),
             keys("y", (8.4, 0), (9.3, 140), (11.2, 136), (12.2, -4), (12.6, 0))),
        part("ear-left", (848, 355),
             poses((7.2, None), (SNEEZE - 0.1, "ear-left-half"), (SNEEZE + 0.06, "ear-left-out"),
                    (8.5, "ear-left-out"), (9.3, "ear-left-half"), (9.9, "ear-left-half"), (10.3, None)),
             keys("turn", (2.8, 0), (3.3, 4), (4.2, 0), (LANDS, 4), (5.6, 6), (6.8, 5), (7.3, 0))),
        part("ear-right", (1022, 367),
             poses((7.3, None), (SNEEZE - 0.06, "ear-right-half"), (SNEEZE + 0.1, "ear-right-out"),
                    (8.6, "ear-right-out"), (9.5, "ear-right-half"), (10.7, "ear-right-half"), (11.1, None)),
             keys("turn", (2.0, 0), (2.5, -5), (3.4, -3), (4.2, 0), (LANDS, -4), (5.7, -6), (6.8, -5), (7.3, 0))),
        part("whiskers-left", (864, 505), *WHISKERS,
             keys("turn", (LANDS, 0), (5.6, 6), (7.0, 7), (SNEEZE - 0.1, 10), (SNEEZE + 0.1, -10), (8.8, 0))),
        part("whiskers-right", (965, 512), *WHISKERS,
             keys("turn", (LANDS, 0), (5.6, -6), (7.0, -7), (SNEEZE - 0.1, -10), (SNEEZE + 0.1, 10), (8.8, 0))),
        part("paws-front", (0, 0),
             poses((7.3, None), (SNEEZE + 0.06, "paws-press"), (8.4, "paws-press"), (9.3, "paws-peek"),
                    (11.3, "paws-peek"), (12.1, None))),
        part("tail", (1176, 770), sway("tail-sway-1", 0.45, 3.5), sway("tail-sway-2", 0.45, 3.5, 0.25),
             keys("tail-flick", (2.5, 0), (2.8, 0.6), (3.2, 0), (5.6, 0), (5.9, 0.5), (6.2, 0), (6.9, 0),
                   (7.15, 0.8), (7.45, 0), (10.0, 0), (10.3, 0.7), (10.7, 0)),
             keys("tail-puff", (SNEEZE - 0.02, 0), (SNEEZE + 0.2, 1), (8.8, 0.7), (10.2, 0)),
             keys("y", (8.5, 0), (9.4, 60), (11.2, 58), (12.3, -3), (12.8, 0))),
        part("flap-back-left", (655, 555), keys("turn", (SNEEZE, 0), (SNEEZE + 0.14, -7), (SNEEZE + 0.4, 2.5),
                                                (SNEEZE + 0.7, -1), (9.0, 0), (9.2, -2), (9.7, 0))),
        part("flap-back-right", (1265, 555), keys("turn", (SNEEZE, 0), (SNEEZE + 0.17, 5), (SNEEZE + 0.45, -2),
                                                  (SNEEZE + 0.75, 0.8), (9.0, 0), (9.25, 2), (9.75, 0))),
        part("flap-front-right", (1288, 615), keys("turn", (SNEEZE, 0), (SNEEZE + 0.2, -5), (SNEEZE + 0.5, 2),
                                                   (8.8, 0), (9.3, -3), (9.9, 0))),
        part("flap-front-left", (632, 615), keys("turn", (SNEEZE, 0), (SNEEZE + 0.2, 6), (SNEEZE + 0.5, -2),
                                                 (8.8, 0), (9.3, 3), (9.9, 0))),
        *SPRAY,
        part("vine-left", (160, 0), sway("turn", 0.35, 7)),
        part("vine-right", (1750, 0), sway("turn", 0.35, 7, 0.4)),
        *LEAVES,
        part("tomato-1", (286, 501), *TOMATO),
        part("tomato-2", (232, 531), *TOMATO),
        part("tomato-3", (1634, 442), *TOMATO),
        part("tomato-4", (1690, 469), *TOMATO),
        part("tomato-5", (1606, 399), *TOMATO),
        part("ray-1", (0, 0), fade(0.12, 14)),
        part("ray-2", (0, 0), fade(0.12, 7, 0.3)),
    ),
    actions=(
        blink(1.5),
        blink(9.7, 0.08, 0.04, 0.12),
        blink(10.9),
        blink(12.7, 0.16, 0.1, 0.3),
    ),
    cat=("cat-body", "cat-head", "pupil-left", "pupil-right", "ear-left", "ear-right", "paws-front", "face",
         "whiskers-left", "whiskers-right", "tail"),
    sound=(
        birds(-41),
        chirp(-37, at=LANDS + 0.2),
        sneeze(-33, at=SNEEZE),
        scrape(-41, at=9.0),
        scrape(-42, at=11.8),
    ),
)
