# SPDX-License-Identifier: GPL-3.0-or-later
"""Places that a guitar is recorded in: its body, the room around it, the microphone before it. They
ring at frequencies of their own, whatever is played. And an amplifier that all strings share.

Each takes a random generator that answers like numpy's RandomState.
"""
import numpy as np
from scipy.signal import butter, fftconvolve, iirpeak, lfilter

RATE = 44100
# Where the lowest modes of a body lie, and how far they stand out, in decibels.
MODES = [((90, 130), (8, 20)), ((160, 240), (6, 20)), ((240, 400), (3, 14))]


def decibels(value):
    return 10 ** (value / 20)


def ring(y, r, frequency, q, gain):
    """What a resonance at that frequency adds; gain: of a sine there, in decibels."""
    b, a = iirpeak(frequency, q, RATE)
    return float(r.choice([-1, 1])) * decibels(gain) * lfilter(b, a, y)


def through_body(y, r):
    """Two or three modes below 400 Hz."""
    sound = y.copy()
    for (low, high), (least, most) in MODES[:int(r.randint(2, 4))]:
        sound += ring(y, r, float(r.uniform(low, high)), float(r.uniform(8, 30)),
                      float(r.uniform(least, most)))
    return sound


def late_room(r):
    """Reflections, then reverberation, which lasts longer in the depth than in the height."""
    seconds = float(r.uniform(.2, .7))
    t = np.arange(int(1.2 * seconds * RATE)) / RATE
    late = r.normal(0, 1, len(t)) * 10 ** (-3 * t / seconds)
    late[:int(float(r.uniform(.004, .02)) * RATE)] = 0
    b, a = butter(1, float(r.uniform(1500, 7000)) / (RATE / 2))
    late = lfilter(b, a, late)
    late *= decibels(-float(r.uniform(8, 22))) / np.sqrt((late ** 2).sum())
    for _ in range(int(r.randint(2, 8))):
        late[int(float(r.uniform(.001, .03)) * RATE)] += decibels(-float(r.uniform(8, 22)))
    late[0] = 1
    return late


def in_room(y, r):
    sound = fftconvolve(y, late_room(r))[:len(y)]
    for _ in range(int(r.randint(0, 4))):
        sound += ring(y, r, float(r.uniform(45, 220)), float(r.uniform(8, 25)),
                      float(r.uniform(-6, 10)))
    return sound


def by_microphone(y, r):
    """It loses the depth, tilts the rest, and hisses; the level is any."""
    b, a = butter(int(r.randint(1, 3)), float(r.uniform(40, 110)) / (RATE / 2), 'high')
    sound = lfilter(b, a, y)
    b, a = butter(1, float(r.uniform(1500, 5000)) / (RATE / 2), 'high')
    sound += float(r.uniform(-.6, .8)) * lfilter(b, a, sound)
    sound /= np.abs(sound).max() + 1e-9
    noise = r.normal(0, 1, len(y))
    b, a = butter(1, float(r.uniform(100, 3000)) / (RATE / 2))
    noise = lfilter(b, a, noise)
    sound += decibels(-float(r.uniform(55, 75))) * noise / noise.std()
    return sound / np.abs(sound).max() * decibels(-float(r.uniform(1, 20)))


def recorded(y, r):
    return by_microphone(in_room(through_body(y, r), r), r)


def amplified(y, r):
    """Driven until it distorts: mildly, or so that a stroke is no louder than what it leaves."""
    b, a = butter(1, float(r.uniform(80, 700)) / (RATE / 2), 'high')
    sound = lfilter(b, a, y)
    sound /= np.sqrt((sound ** 2).mean()) + 1e-9
    drive, bias = decibels(float(r.uniform(-12, 24))), float(r.uniform(0, .3))
    sound = np.tanh(drive * sound + bias) - np.tanh(bias)
    b, a = butter(int(r.randint(1, 5)), float(r.uniform(2500, 6000)) / (RATE / 2))
    sound = lfilter(b, a, sound)
    b, a = butter(1, float(r.uniform(50, 120)) / (RATE / 2), 'high')
    sound = lfilter(b, a, sound)
    return sound / (np.abs(sound).max() + 1e-9) * decibels(-float(r.uniform(1, 12)))
