"""What is heard in the clips: every function makes a voice, a function from a clip's length in seconds to its stereo
signal. Levels are decibels below full scale: the effective value of what goes on, and of single events while they last.
"""

import zlib

import numpy as np

from noise import RATE, amplitude, band, coloured, hump, levelled, loudness, place, room, swell, tone, wide

LOUDNESS = -30  # LUFS
PURR_HERTZ = 25


def _voice(make):
    """Turns `make(track, random, ...)` into a voice with randomness of its own that is the same in every run."""
    def voice(*settings, **named):
        def play(seconds):
            seed = zlib.crc32(repr((make.__name__, settings, sorted(named.items()))).encode())
            track = np.zeros((seconds * RATE, 2))
            return make(track, np.random.default_rng(seed), *settings, **named)
        return play
    voice.__name__, voice.__doc__ = make.__name__, make.__doc__
    return voice


def mix(voices, seconds):
    """All voices together, brought to the loudness every clip has."""
    track = sum(voice(seconds) for voice in voices)
    return track * amplitude(LOUDNESS - loudness(track))


@_voice
def purr(track, random, level, breath):
    """A purr: soft thuds at 25 Hz that swell with each breath, breathing in a little brighter than breathing out."""
    samples, seconds = len(track), len(track) / RATE
    t = np.arange(int(0.09 * RATE)) / RATE
    thuds = [sum(np.sin(2 * np.pi * f * t + random.random() * 6) * np.exp(-t * fall) * a
                 for f, fall, a in ((74, 48, 1.0), (128, 60, 0.8), (212, 75, 0.55), (345, 95, 0.3), (560, 130, 0.14)))
             * np.minimum(t / 0.004, 1) for _ in range(6)]
    air = coloured(samples, random, band(250, 1300))
    for n in range(round(PURR_HERTZ * seconds)):
        at = n / PURR_HERTZ + random.normal() * 0.0012
        grain = thuds[random.integers(6)] * (1 + 0.16 * random.normal())
        start = int(at * RATE)
        breeze = air[(start + np.arange(t.size)) % samples] * np.exp(-t * 70) * 0.16
        place(track, at, grain + breeze)
    u = (np.arange(samples) / RATE / breath) % 1.0
    inhale = np.sin(np.pi * np.minimum(u / 0.46, 1)).clip(0) ** 1.4
    exhale = np.sin(np.pi * np.maximum(u - 0.5, 0) / 0.5).clip(0) ** 1.4
    bright = track - _low_pass(track, 150)
    track = (track * (0.22 + 0.62 * exhale + 0.5 * inhale)[:, None] + bright * (0.7 * inhale)[:, None])
    return levelled(track, level)


def _low_pass(track, hertz):
    f = np.fft.rfftfreq(len(track), 1 / RATE)
    return np.fft.irfft(np.fft.rfft(track, axis=0) / (1 + (f / hertz) ** 2)[:, None], len(track), axis=0)


@_voice
def rain(track, random, level):
    """Soft rain on glass: a wide hush and the patter of single drops."""
    samples = len(track)
    hush = wide(samples, random, band(500, 5200, 1), 0.7) * swell(samples, random, (1, 2, 3), 0.25)[:, None]
    for _ in range(int(34 * samples / RATE)):
        t = np.arange(int(0.03 * RATE)) / RATE
        drop = np.sin(2 * np.pi * random.uniform(1400, 4200) * t) * np.exp(-t * random.uniform(180, 420))
        place(track, random.uniform(0, samples / RATE), drop * random.exponential(0.5), random.uniform(-0.9, 0.9))
    patter = levelled(_low_pass(track, 3000), -7)
    return levelled(hush + patter, level)


@_voice
def gust(track, random, level, at):
    """One far gust of wind, four seconds long, that comes and goes."""
    blow = hump(4, 0.4)
    grain = coloured(len(track), random, band(120, 520, 2))[:blow.size]
    hiss = coloured(len(track), random, band(500, 1500, 2))[:blow.size]
    grain = grain * blow + 0.3 * hiss * blow ** 2
    place(track, at - 0.6, levelled(grain, level) * np.sqrt(2), -0.2)
    return track


@_voice
def burble(track, random, level):
    """A small aquarium: little bubbles at odd moments over a soft flow of water."""
    seconds = len(track) / RATE
    at = 0.1
    while at < seconds - 0.1:
        for _ in range(random.integers(1, 6)):
            length, pitch = random.uniform(0.03, 0.09), random.uniform(320, 900)
            u = np.linspace(0, 1, int(length * RATE))
            pop = tone(pitch * (1 + 0.5 * u ** 2)) * np.sin(np.pi * u ** 0.5) ** 2
            place(track, at, pop * random.uniform(0.2, 1), random.uniform(-0.6, 0.1))
            at += random.uniform(0.03, 0.13)
        at += random.exponential(0.35)
    flow = wide(len(track), random, band(140, 700), 0.4) * swell(len(track), random, (2, 3, 5), 0.3)[:, None]
    return levelled(levelled(room(track, random, 0.25, 0.5), -3) + levelled(flow, -5), level)


@_voice
def clock(track, random, level, every):
    """A slow clock in another room, hardly there."""
    t = np.arange(int(0.05 * RATE)) / RATE
    for n in range(round(len(track) / RATE / every)):
        pitch = (1250, 1080)[n % 2] * (1 + 0.02 * random.normal())
        tick = (np.sin(2 * np.pi * pitch * t) + 0.4 * np.sin(2 * np.pi * 2.7 * pitch * t)) * np.exp(-t * 160)
        place(track, 0.8 + n * every, levelled(tick, level) * np.sqrt(2), 0.4)
    return room(_low_pass(track, 1800), random, 0.4, 0.8)


@_voice
def chirp(track, random, level, at):
    """A cat's small rolled chirp of interest."""
    u = np.linspace(0, 1, int(0.34 * RATE))
    pitch = 430 + 250 * np.sin(np.pi * u ** 1.6 * 0.62) + 8 * np.sin(2 * np.pi * 31 * 0.34 * u)
    roll = 1 - 0.45 * (0.5 + 0.5 * np.cos(2 * np.pi * 27 * 0.34 * u)) * (1 - u)
    voice = sum(tone(pitch * k) * a for k, a in ((1, 1), (2, 0.42), (3, 0.2), (4, 0.07)))
    breath = coloured(len(track), random, band(900, 3000))[:u.size] * 0.05
    place(track, at, levelled((voice + breath) * roll * np.sin(np.pi * u ** 0.7) ** 1.5, level) * np.sqrt(2), 0.15)
    return room(track, random, 0.3, 0.3)


@_voice
def rustle(track, random, level, every, start, presses):
    """Wool under a paw at each press from `start`, left, right, left, never twice as loud."""
    for n in range(presses):
        press = hump(random.uniform(0.45, 0.65), 0.35)
        wool = coloured(len(track), random, band(500, 2600, 1))[:press.size]
        grit = 0.6 + 0.4 * np.abs(coloured(len(track), random, band(15, 60))[:press.size])
        at = start + n * every + every / 4 + random.normal() * 0.04 - 0.2
        place(track, at, levelled(wool * grit * press, level + random.uniform(-7, 1)) * np.sqrt(2), (-0.3, 0.3)[n % 2])
    return track


@_voice
def birds(track, random, level):
    """A garden far away: a few birds that answer each other, and air."""
    seconds = len(track) / RATE
    singers = ((3600, 500, 3, 0.09, -0.7), (2700, -700, 2, 0.16, 0.6), (4300, 900, 5, 0.05, 0.2),
               (3100, 250, 1, 0.3, -0.3))  # hertz, bend in hertz, notes, seconds to a note, side
    at, last = 0.4, 0
    while at < seconds - 0.6:
        last = (last + random.integers(1, len(singers))) % len(singers)  # never the same bird twice in a row
        pitch, bend, notes, length, pan = singers[last]
        for _ in range(notes):
            u = np.linspace(0, 1, int(length * RATE))
            note = tone(pitch * random.uniform(0.97, 1.03) + bend * np.sin(np.pi * u)) * np.sin(np.pi * u) ** 2
            place(track, at, note * random.uniform(0.4, 1), pan)
            at += length + random.uniform(0.03, 0.07)
        at += random.uniform(0.35, 1.5)
    air = wide(len(track), random, band(200, 1800, 1), 0.8) * swell(len(track), random, (1, 2), 0.4)[:, None]
    return levelled(levelled(room(track, random, 0.8, 1.4), -4) + levelled(air, -5), level)


@_voice
def scrape(track, random, level, at):
    """Fur and claws along carton."""
    push = hump(0.55, 0.3)
    carton = coloured(len(track), random, band(700, 3600, 1))[:push.size]
    grain = np.abs(coloured(len(track), random, band(30, 110))[:push.size])
    place(track, at - 0.05, levelled(carton * (0.25 + grain) * push, level) * np.sqrt(2), 0.0)
    return room(track, random, 0.15, 0.4)


@_voice
def sneeze(track, random, level, at):
    """A small cat's sneeze: a sip of air, then a soft burst that falls off at once."""
    air = coloured(len(track), random, band(1400, 5200, 1))
    sip, burst = hump(0.3, 0.8), hump(0.26, 0.12)
    place(track, at - 0.42, levelled(air[:sip.size] * sip, level - 9) * np.sqrt(2), -0.05)
    u = np.linspace(0, 1, burst.size)
    squeak = tone(760 - 260 * u) * 0.5 * np.exp(-u * 5)
    place(track, at - 0.03, levelled((air[sip.size:sip.size + burst.size] + squeak) * burst, level) * np.sqrt(2), -0.05)
    return room(track, random, 0.25, 0.3)


@_voice
def fan(track, random, level):
    """A laptop's fan at its lowest speed."""
    t = np.arange(len(track)) / RATE
    hum = sum(np.sin(2 * np.pi * f * t + f) * a for f, a in ((118, 1), (236, 0.5), (354, 0.18)))
    return levelled(wide(len(track), random, band(180, 1100, 1), 0.4) + 0.16 * hum[:, None], level)


@_voice
def city(track, random, level):
    """A city far below at night."""
    return levelled(wide(len(track), random, band(45, 220), 0.6) * swell(len(track), random, (1, 2, 3), 0.5)[:, None],
                    level)


@_voice
def tap(track, random, level, at):
    """A soft paw on a key."""
    t = np.arange(int(0.12 * RATE)) / RATE
    thud = np.sin(2 * np.pi * 170 * t) * np.exp(-t * 55) + 0.35 * np.sin(2 * np.pi * 900 * t) * np.exp(-t * 220)
    place(track, at + 0.1, levelled(thud * np.minimum(t / 0.002, 1), level) * np.sqrt(2), -0.1)
    return room(track, random, 0.12, 0.3)


@_voice
def wind(track, random, level):
    """Muffled wind behind a window."""
    samples = len(track)
    low = wide(samples, random, band(70, 330), 0.6) * swell(samples, random, (1, 2, 3, 5), 0.65)[:, None]
    whistle = wide(samples, random, band(420, 640, 4), 0.8) * (swell(samples, random, (2, 3), 1) ** 2)[:, None]
    return levelled(low + 0.14 * whistle, level)


@_voice
def crackle(track, random, level):
    """A candle that crackles now and then."""
    seconds = len(track) / RATE
    for start in np.arange(1.1, seconds - 1, 3.1):
        start += random.uniform(-0.9, 0.9)
        for _ in range(random.integers(2, 7)):
            t = np.arange(int(0.012 * RATE)) / RATE
            snap = random.normal(size=t.size) * np.exp(-t * random.uniform(350, 900))
            place(track, start, levelled(snap, level) * random.uniform(0.3, 1.2), random.uniform(-0.8, -0.4))
            start += random.exponential(0.07)
    return room(_low_pass(track, 5000), random, 0.12, 0.3)


@_voice
def sigh(track, random, level, at):
    """A contented cat breathes out through its nose."""
    air = hump(1.5, 0.25)
    breath = coloured(len(track), random, band(350, 1500, 1))[:air.size]
    place(track, at, levelled(breath * air ** 1.5, level) * np.sqrt(2), -0.1)
    return room(track, random, 0.15, 0.3)
