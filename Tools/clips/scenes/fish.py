"""The fish: a tuxedo cat beside a bowl follows the fish with eyes and head, leans in, taps the glass, and is not the one
who did it."""

from actions import Action, Ring, blink
from motion import breath, fade, frames, keys, poses, puff, sway
from scene import Scene, part
from sound import burble, chirp, clock, tap

BREATH = 3.5
TAP = 8.0  # when the paw meets the glass


def turn_left(start, seconds):
    """The fish turns towards the viewer and on to the left."""
    drawn = (None, "fish-turn-l1", "fish-turn-l2", "fish-front-l", "fish-turn-l4", "fish-turn-l5", "fish-left")
    return tuple((start + seconds * k / 6, name) for k, name in enumerate(drawn))


def turn_right(start, seconds):
    drawn = ("fish-left", "fish-turn-r1", "fish-turn-r2", "fish-front-r", "fish-turn-r4", "fish-turn-r5", None)
    return tuple((start + seconds * k / 6, name) for k, name in enumerate(drawn))


def peek(start):
    """Turns to the viewer, looks out for a while, and on to the right."""
    first, second = turn_right(start, 1.1), turn_right(start + 1.0, 1.1)
    return first[:4] + second[3:]


def bubble(id, start, dx, rise, seconds):
    """One of the cloud the fish leaves behind: out of nothing, up, and gone."""
    end = start + seconds
    return part(id, (0, 0),
                keys("opacity", (start - 0.02, 0), (start + 0.08, 1), (start + seconds * 0.75, 1), (end, 0)),
                keys("y", (start - 0.02, 0), (end, -rise), (end + 0.1, 0)),
                keys("x", (start - 0.02, 0), (start + 0.3, dx), (end, dx + 6), (end + 0.1, 0)))


CLOUD = tuple(bubble(f"puff-{k}", TAP + 0.04 + late, dx, rise, seconds) for k, (late, dx, rise, seconds) in enumerate((
    (0.00, 10, 118, 1.5), (0.03, -6, 134, 1.9), (0.05, 14, 138, 1.7), (0.08, -8, 110, 1.6), (0.12, -10, 128, 2.1),
    (0.06, 6, 102, 1.3), (0.16, -12, 118, 1.8), (0.02, 12, 120, 1.4), (0.20, -14, 126, 2.2)), 1))

EYE = (keys("scale", (TAP, 0), (TAP + 0.12, 0.04), (TAP + 0.7, 0.03), (TAP + 1.3, 0)),)
PUPIL = (
    keys("x", (0, 0), (1.6, 3.5), (2.5, 3), (4.2, -4.5), (5.1, -4.5), (6.5, 2.5), (TAP, 1), (TAP + 0.1, 1),
         (TAP + 0.22, -5), (9.2, -5), (9.42, 20), (11.0, 20), (11.35, -5), (12.6, -4.5)),
    keys("y", (0, 0), (1.6, 2), (4.2, 0), (6.5, 3), (TAP, 3), (9.2, 1), (9.42, -10), (11.0, -10), (11.35, 1.5),
         (12.8, 1)),
    keys("scale", (5.6, 0), (6.8, 0.16), (TAP, 0.16), (TAP + 0.12, 0.25), (9.2, 0.1), (9.8, -0.08), (11.2, -0.05),
         (12.2, 0)),
)
FACE = (
    keys("x", (0, 0), (0.3, 0), (2.0, 5), (2.9, 5), (4.7, -6), (5.5, -6), (6.8, -3), (TAP, -4), (TAP + 0.2, 3),
         (9.3, 0), (9.8, 25), (11.3, 25), (12.0, -5), (13.0, -4)),
    keys("y", (0, 0), (2.4, 2), (4.9, -1), (6.8, 6), (TAP, 7), (TAP + 0.2, -5), (9.3, -2), (9.8, -9), (11.3, -8),
         (12.0, 2), (13.2, 0)),
)
WHISKERS = sway("turn", 1, BREATH, 0.3)
FORWARD = ((0, 0), (5.8, 0), (6.9, 5), (TAP, 6), (TAP + 0.15, -7), (9.2, -5), (10.0, 0))

SCENE = Scene(
    name="2-the-fish",
    drawing="scene-2-fish.svg",
    seconds=14,
    parts=(
        part("fish", (650, 630),
             keys("x", (0, 6), (1.4, 62), (2.0, 76), (2.6, 62), (4.2, -62), (4.8, -78), (5.5, -60), (6.7, 80),
                  (7.4, 88), (TAP + 0.02, 84), (TAP + 0.2, 62), (TAP + 0.5, -66), (TAP + 0.8, -82), (10.2, -84),
                  (10.6, -98), (11.4, -98), (12.0, -84), (13.2, -48)),
             keys("y", (0, -4), (1.9, -22), (4.7, 14), (6.8, -10), (7.5, -14), (TAP, -8), (TAP + 0.16, -20),
                  (TAP + 0.6, 44), (10.0, 40), (10.6, 34), (11.4, 30), (12.4, 18)),
             keys("turn", (0, -4), (1.2, -7), (2.1, 0), (3.4, -8), (4.7, 0), (5.9, -8), (6.9, 0), (TAP, 3),
                  (TAP + 0.12, 10), (TAP + 0.35, -14), (TAP + 0.8, 0), (11.9, 0), (12.8, -6)),
             sway("y", 4, 2.8, 0.2), sway("turn", 2, 1.4),
             poses((0, None), *turn_left(1.5, 0.95), *turn_right(4.2, 1.0), *turn_left(TAP + 0.02, 0.3), *peek(10.0))),
        part("fish-tail", (650, 630), sway("scale_x", 0.09, frames(20), 0.1), sway("turn", 3, frames(20))),
        part("fish-fin", (650, 640), sway("turn", 5, frames(28))),
        part("pupil-left", (1044, 417), *PUPIL),
        part("pupil-right", (1161, 407), *PUPIL),
        part("eye-left", (1053, 413), *EYE),
        part("eye-right", (1169, 403), *EYE),
                part("face", (0, 0), *FACE),
        part("muzzle", (0, 0), *FACE),
        part("mouth", (0, 0), poses((TAP + 0.04, None), (TAP + 0.16, "mouth-o"), (TAP + 0.7, "mouth-o"),
                                     (TAP + 1.1, None))),
        part("cat-head", (1140, 490),
             sway("y", -1.6, BREATH, 0.25),
             keys("turn", (0, 0), (0.4, 0.3), (2.1, 2.6), (3.0, 2.4), (4.8, -2.6), (5.5, -2.4), (6.9, -4), (TAP, -6),
                  (TAP + 0.2, 7.5), (TAP + 0.55, 5), (9.3, 4), (9.85, 6.5), (11.3, 6), (12.1, -2), (13.2, -0.5)),
             keys("x", (0, 0), (2.1, 3), (4.8, -8), (5.7, -8), (6.9, -74), (7.9, -84), (TAP + 0.04, -84),
                  (TAP + 0.26, 52), (TAP + 0.6, 40), (9.0, 38), (10.1, 2), (11.3, 3), (12.2, -4)),
             keys("y", (0, 0), (4.8, 3), (5.7, 3), (6.9, 30), (7.9, 36), (TAP + 0.04, 36), (TAP + 0.26, -12),
                  (TAP + 0.6, -4), (9.0, -4), (10.1, 0))),
        part("cat-body", (1250, 806), breath("scale_x", 0.005, BREATH), breath("scale_y", 0.016, BREATH),
             poses((5.7, None), (6.9, "body-lean"), (TAP + 0.04, "body-lean"), (TAP + 0.28, "body-back"),
                    (9.0, "body-back"), (10.1, None))),
        part("foreleg-far", (1044, 806),
             poses((5.7, None), (6.9, "far-lean"), (TAP + 0.04, "far-lean"), (TAP + 0.28, "far-back"),
                    (9.0, "far-back"), (10.1, None))),
        part("foreleg-near", (1124, 806),
             poses((5.7, None), (6.9, "near-lean"), (7.1, "near-lean"), (7.4, "near-lift"),
                    (7.66, "near-poise"), (7.86, "near-poise"), (TAP, "near-tap"), (TAP + 0.07, "near-tap"),
                    (TAP + 0.24, "near-lift"), (TAP + 0.46, "near-tuck"), (9.3, "near-tuck"), (9.75, "near-back"),
                    (10.1, None))),
        part("ear-left", (1042, 344), keys("turn", (5.9, 0), (6.9, 5), (7.9, 6), (TAP + 0.1, 0)),
             poses((TAP + 0.04, None), (TAP + 0.24, "ear-left-out"), (9.1, "ear-left-out"), (9.8, None))),
        part("ear-right", (1203, 330), keys("turn", (6.0, 0), (7.0, -4), (7.9, -5), (TAP + 0.1, 0)),
             poses((TAP + 0.04, None), (TAP + 0.27, "ear-right-out"), (9.2, "ear-right-out"), (9.95, None))),
        part("whiskers-left", (1070, 480), WHISKERS, keys("turn", *FORWARD)),
        part("whiskers-right", (1163, 471), WHISKERS, keys("turn", *((t, -v) for t, v in FORWARD))),
        part("tail", (1372, 764), sway("tail-sway-1", 0.42, 7), sway("tail-sway-2", 0.42, 7, 0.25),
             sway("tail-tip", 0.34, 3.5, 0.2),
             keys("tail-tip", (0.5, 0), (0.8, -0.5), (1.15, 0.7), (1.7, 0), (4.9, 0), (5.15, -0.5), (5.5, 0.7), (6.0, 0),
                  (6.9, 0), (7.06, -0.5), (7.26, 0.7), (7.46, -0.6), (7.68, 0.6), (TAP, 0), (TAP + 0.15, 0.5),
                  (TAP + 0.4, -0.3), (9.0, -0.1), (10.0, 0), (11.6, 0), (11.9, -0.5), (12.4, 0.7), (13.0, 0)),
             keys("tail-flick", (0.5, 0), (0.85, 0.55), (1.3, 0), (4.9, 0), (5.2, 0.6), (5.6, 0),
                   (6.9, 0), (7.1, 0.7), (7.32, 0.05), (7.52, 0.75), (7.76, 0), (TAP, 0), (TAP + 0.2, -0.5),
                   (9.0, -0.2), (9.6, 0), (11.6, 0), (12.0, 0.6), (12.5, 0)),
             keys("tail-puff", (TAP, 0), (TAP + 0.22, 1), (9.0, 0.8), (10.6, 0))),
        part("weed", (0, 0), sway("weed-wave", 1, 3.5)),
        part("weed-front", (0, 0), sway("weed-front-wave", 0.7, 3.5, 0.3),
             keys("weed-front-lean", (10.0, 0), (10.6, 1.7), (11.4, 1.7), (12.0, 0))),
        part("water", (0, 0), sway("water-tilt", 0.35, 3.5), sway("water-wave", 0.3, 2.8, 0.2)),
        part("bubble-1", (536, 600), *puff(0, -84, 3.5)),
        part("bubble-2", (548, 590), *puff(4, -70, 2.8, 0.3)),
        part("bubble-3", (528, 596), *puff(0, -80, 7, 0.6)),
        *CLOUD,
        part("clink", (846, 592), keys("opacity", (TAP - 0.04, 0), (TAP + 0.05, 1), (TAP + 0.14, 1),
                                       (TAP + 0.36, 0)),
             keys("scale", (0, 0), (TAP - 0.04, -0.2), (TAP + 0.36, 0.2), (TAP + 0.5, 0))),
        part("lamp-glow", (292, 190), fade(0.03, 14)),
    ),
    actions=(
        blink(3.2),
        Action(3.6, "ear-right", "turn", 8, (0.12, 0.3, 0.3)),
        blink(5.6),
        # The water takes a while to calm down, and so does the weed.
        Ring(TAP, "water", "water-tilt", 1.3, swing=0.9, fade=1.1),
        Ring(TAP, "water", "water-ripple-1", 1, swing=0.5, fade=0.9),
        Ring(TAP, "water", "water-ripple-2", 1, swing=0.5, fade=0.9, phase=0.25),
        Ring(TAP + 0.3, "weed", "weed-lean", -1, swing=1.6, fade=0.9),
        Ring(TAP + 0.3, "weed-front", "weed-front-lean", -1, swing=1.4, fade=0.9),
        blink(10.3, 0.3, 0.22, 0.45),
        blink(12.9),
        Action(12.9, "ear-left", "turn", -7, (0.14, 0.3, 0.3)),
    ),
    cat=("cat-body", "cat-head", "pupil-left", "pupil-right", "ear-left", "ear-right", "foreleg-near", "foreleg-far",
         "whiskers-left", "whiskers-right", "face", "tail"),
    sound=(
        burble(-38),
        clock(-45, every=2),
        chirp(-35, at=6.6),
        tap(-34, at=TAP),
    ),
)
