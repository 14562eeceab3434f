# SPDX-License-Identifier: GPL-3.0-or-later
"""What notes sound like: computed guitars, and what recording does to their sound."""
import banks
import make_set
import numpy as np
from scipy.signal import butter, fftconvolve, lfilter

RATE = banks.SR


def decibels(value):
    return 10 ** (value / 20)


def spread(r, low, high):
    """Drawn evenly on a logarithmic scale."""
    return float(np.exp(r.uniform(np.log(low), np.log(high))))


class Guitar:
    """Plucked strings of random make, computed partial by partial: not in any collection."""

    def __init__(self, name):
        r = self.r = make_set.rng('synth', name)
        self.pluck, self.pickup = r.uniform(.06, .35), r.uniform(.05, .3)
        self.slope = r.uniform(.0, 1.2)
        self.electric = r.rand() < .5
        self.bright = spread(r, 900, 7000)
        self.stiffness = spread(r, 1e-5, 2e-4)
        self.decay, self.damped_above = r.uniform(.5, 2.5), spread(r, 600, 4000)
        self.beat, self.burst = r.uniform(0, 1.2), decibels(-r.uniform(15, 40))
        self.body = [] if self.electric else [
            (spread(r, 90, 900), r.uniform(8, 40), r.uniform(0, 2.0)) for _ in range(5)]

    def bank(self):
        """Notes by pitch, as banks.build answers them."""
        return {pitch: self.note(pitch) for pitch in range(banks.LO, banks.HI + 1)}

    def level(self, number, f0, frequency, variation):
        level = abs(np.sin(np.pi * number * self.pluck * variation)) / number ** self.slope
        level /= 1 + (frequency / self.bright) ** 2
        if self.electric:
            level *= abs(np.sin(np.pi * number * min(.49, self.pickup * f0 / 110)))
        for centre, q, gain in self.body:
            level *= 1 + gain / (1 + (q * (frequency / centre - centre / frequency)) ** 2)
        return level * np.exp(self.r.normal(0, .35))

    def add_partial(self, y, t, level, frequency, tau):
        """A partial decays in two planes of vibration, of nearly the same frequency."""
        r = self.r
        other = frequency * 2 ** (self.beat * r.normal() / 1200)
        share = r.uniform(.2, .7)
        tau = max(.03, tau)
        n = min(len(y), int(24 * tau * RATE) + 1)
        first = np.exp(-t[:n] / tau) * np.sin(2 * np.pi * frequency * t[:n] + r.uniform(0, 6.28))
        slow = np.exp(-t[:n] / (tau * r.uniform(1.5, 3)))
        second = slow * np.sin(2 * np.pi * other * t[:n] + r.uniform(0, 6.28))
        y[:n] += level * ((1 - share) * first + share * second)

    def note(self, pitch):
        r = self.r
        t = np.arange(4 * RATE, dtype=np.float32) / RATE
        y = np.zeros(len(t), np.float32)
        f0 = banks.hz(pitch)
        stiffness = self.stiffness * 2 ** ((pitch - 50) / 12 * r.uniform(.5, 1.1))
        variation = r.uniform(.85, 1.15)
        for number in range(1, 45):
            frequency = f0 * number * np.sqrt(1 + stiffness * number * number)
            if frequency > 10000:
                break
            level = self.level(number, f0, frequency, variation)
            tau = self.decay * (110 / f0) ** .45 / (1 + (frequency / self.damped_above) ** 1.5)
            self.add_partial(y, t, level, frequency, tau * np.exp(r.normal(0, .2)))
        n = int(.03 * RATE)
        noise = r.normal(0, 1, n).astype(np.float32)
        y[:n] += np.abs(y).max() * self.burst * noise * np.exp(-t[:n] / .006)
        y[:30] *= np.linspace(0, 1, 30)
        y[-800:] *= np.linspace(1, 0, 800)
        return (y / np.abs(y).max() * .5).astype(np.float32)


def softened(note, strength, r):
    """A weak stroke is duller."""
    if strength >= .7:
        return note
    cutoff = 900 * 8 ** (strength / .7) * float(1 + .3 * r.rand())
    b, a = butter(1, min(.9, cutoff / (RATE / 2)))
    return lfilter(b, a, note).astype(np.float32)


def sympathetic_strings(r, t):
    h = np.zeros(len(t))
    gain = decibels(float(r.uniform(-46, -28)))
    for pitch in make_set.OPEN:
        f0 = banks.hz(pitch + float(r.normal(0, .04)))
        tau = float(r.uniform(.3, 1.2))
        for k in range(1, 14):
            frequency = f0 * k * np.sqrt(1 + 5e-5 * k * k)
            wave = np.sin(2 * np.pi * frequency * t + float(r.uniform(0, 6.28)))
            h += gain * .05 / k ** .5 * np.exp(-t / (tau / k ** .5)) * wave
    return h


def body(r, t):
    h = np.zeros(len(t))
    for _ in range(int(r.randint(2, 7))):
        frequency = spread(r, 85, 700)
        q = float(r.uniform(12, 50))
        gain = float(r.uniform(.2, 1)) * 2 * np.pi * frequency / q / RATE
        wave = np.sin(2 * np.pi * frequency * t + float(r.uniform(0, 6.28)))
        h += gain * np.exp(-np.pi * frequency / q * t) * wave
    return h


def room(r, t):
    seconds = float(r.uniform(.15, .8))
    wet = decibels(-float(r.uniform(6, 24)))
    late = r.normal(0, 1, len(t)) * np.exp(-6.9 * t / seconds)
    late[:int(float(r.uniform(.002, .02)) * RATE)] = 0
    b, a = butter(1, float(r.uniform(2000, 8000)) / (RATE / 2))
    late = lfilter(b, a, late)
    late *= wet / np.sqrt((late ** 2).sum())
    for _ in range(int(r.randint(0, 5))):
        late[int(float(r.uniform(.001, .03)) * RATE)] += wet * float(r.uniform(-.7, .7))
    return late


def impulse_response(r):
    t = np.arange(3 * RATE) / RATE
    h = np.zeros(len(t))
    h[0] = 1
    for part, probability in ((sympathetic_strings, .75), (body, .7), (room, .8)):
        if r.rand() < probability:
            h += part(r, t)
    return h


def equalised(y, r):
    size = 1 << (len(y) - 1).bit_length()
    f = np.fft.rfftfreq(size, 1 / RATE)
    gain = (np.maximum(f, 60) / 800) ** float(r.uniform(-.45, .45))
    for _ in range(3):
        centre = spread(r, 100, 6000)
        width, level = float(r.uniform(.3, 1.2)), float(r.uniform(-7, 7))
        octaves = np.log2(np.maximum(f, 20) / centre)
        gain *= decibels(level * np.exp(-(octaves / width) ** 2))
    if r.rand() < .5:
        cutoff = float(r.uniform(40, 130))
        gain *= 1 / np.sqrt(1 + (cutoff / np.maximum(f, 1)) ** 4)
    return np.fft.irfft(np.fft.rfft(y, size) * gain, size)[:len(y)]


def recorded_badly(y, r):
    """In a room, through a body, tone controls and an amplifier, with noise and hum."""
    y = equalised(fftconvolve(y, impulse_response(r))[:len(y)], r)
    y /= np.abs(y).max() + 1e-9
    if r.rand() < .25:
        drive = float(r.uniform(1, 4))
        y = np.tanh(drive * y) / np.tanh(drive)
    noise = r.normal(0, 1, len(y))
    if r.rand() < .6:
        b, a = butter(1, float(r.uniform(200, 3000)) / (RATE / 2))
        noise = lfilter(b, a, noise)
        noise /= noise.std()
    y = y + noise * decibels(float(r.uniform(-75, -40)))
    if r.rand() < .3:
        t = np.arange(len(y)) / RATE
        hum = float(r.choice([50, 60]))
        for k in range(1, 8):
            y = y + decibels(float(r.uniform(-80, -48))) * np.sin(2 * np.pi * hum * k * t + k)
    return y
