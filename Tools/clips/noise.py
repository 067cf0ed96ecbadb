"""Building blocks of the clips' sound. All of it is periodic in the clip's length, so a loop has no seam to hear."""

import numpy as np

RATE = 48000


def amplitude(decibels):
    return 10 ** (decibels / 20)


def coloured(samples, random, gain):
    """Noise of effective value 1 shaped by `gain(hertz)` over the frequencies, made from them and therefore periodic."""
    hertz = np.fft.rfftfreq(samples, 1 / RATE)
    spectrum = gain(hertz) * (random.normal(size=hertz.size) + 1j * random.normal(size=hertz.size))
    spectrum[0] = 0
    return levelled(np.fft.irfft(spectrum, samples))


def wide(samples, random, gain, width):
    """The same in stereo: `width` 0 is one noise on both sides, 1 is two unrelated ones."""
    middle, left, right = (coloured(samples, random, gain) for _ in range(3))
    return np.stack([middle * (1 - width) + left * width, middle * (1 - width) + right * width], axis=1)


def band(low, high, steep=2):
    """A soft band pass for `coloured`, falling off on both sides; with a pink tilt."""
    def gain(hertz):
        f = np.maximum(hertz, 1)
        return f ** -0.5 / np.sqrt((1 + (low / f) ** (2 * steep)) * (1 + (f / high) ** (2 * steep)))
    return gain


def levelled(signal, decibels=0.0):
    """Brought to an effective value."""
    return signal * (amplitude(decibels) / np.sqrt(np.mean(signal ** 2)))


def swell(samples, random, cycles, depth):
    """A slow wander around 1, of a few whole waves per clip; `depth` is how far it may go down."""
    t = np.arange(samples) / samples
    wave = sum(np.sin(2 * np.pi * (k * t + random.random())) / k for k in cycles)
    wave = (wave - wave.min()) / np.ptp(wave)
    return 1 - depth * wave


def place(track, at, grain, pan=0.0):
    """Adds a mono grain at a time in seconds, around the end of the clip if need be; pan from -1 to 1."""
    where = (int(round(at * RATE)) + np.arange(grain.size)) % len(track)
    track[where, 0] += grain * np.sqrt((1 - pan) / 2)
    track[where, 1] += grain * np.sqrt((1 + pan) / 2)


def room(track, random, seconds, wet):
    """Adds a soft, dark echo that also goes around the end of the clip."""
    size = int(seconds * 4 * RATE)
    tail = np.zeros((len(track), 2))
    fall = np.exp(-np.arange(size) / RATE / seconds * 3)[:, None]
    tail[:size] = random.normal(size=(size, 2)) * fall
    tail /= np.sqrt((tail ** 2).sum(axis=0))
    spectrum = np.fft.rfft(track, axis=0) * np.fft.rfft(tail, axis=0)
    spectrum /= (1 + np.fft.rfftfreq(len(track), 1 / RATE) / 3500)[:, None]
    return track + wet * np.fft.irfft(spectrum, len(track), axis=0)


def hump(seconds, peak=0.5):
    """A rise and fall between 0 and 1, highest at the fraction `peak`."""
    u = np.linspace(0, 1, int(seconds * RATE), endpoint=False)
    u = np.where(u < peak, u / peak / 2, 0.5 + (u - peak) / (1 - peak) / 2)
    return np.sin(np.pi * u) ** 2


def tone(hertz):
    """A sine following an array of frequencies."""
    return np.sin(2 * np.pi * np.cumsum(hertz) / RATE)


def _biquad(hertz, forwards, backwards):
    """Power gain of a filter of second order at some frequencies."""
    z = np.exp(-2j * np.pi * hertz / RATE)
    return np.abs(np.polyval(forwards[::-1], z) / np.polyval(backwards[::-1], z)) ** 2


def loudness(track):
    """In LUFS, as ITU-R BS.1770 measures it: heard through the shape of a head and a high pass, in blocks of 0.4 s, those
    left out that are far below the rest."""
    spectrum = np.fft.rfft(track, axis=0)
    hertz = np.fft.rfftfreq(len(track), 1 / RATE)
    weight = (_biquad(hertz, (1.53512485958697, -2.69169618940638, 1.19839281085285),
                      (1, -1.69065929318241, 0.73248077421585))
              * _biquad(hertz, (1, -2, 1), (1, -1.99004745483398, 0.99007225036621)))
    power = (np.fft.irfft(spectrum * np.sqrt(weight)[:, None], len(track), axis=0) ** 2).sum(axis=1)
    steps = power[:len(power) // (RATE // 10) * (RATE // 10)].reshape(-1, RATE // 10).mean(axis=1)
    blocks = sum(np.roll(steps, -k) for k in range(4)) / 4
    heard = blocks[blocks > amplitude(2 * (-70 + 0.691))]
    heard = heard[heard > heard.mean() / 10]
    return float(-0.691 + 10 * np.log10(heard.mean()))
