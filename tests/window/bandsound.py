# SPDX-License-Identifier: GPL-3.0-or-later
"""A recording of a band that plays nowhere but here: chords of a keyboard, a bass and drums."""
import array
import math
import random
import wave

RATE = 22050
SECONDS_OF_BEAT = 0.6
BEATS = 4
TRIADS = {"C": (48, 52, 55), "G": (43, 47, 50), "Am": (45, 48, 52), "F": (41, 45, 48)}
PARTIALS = 6


def add(samples, at, sound):
    for i, value in enumerate(sound[:len(samples) - at]):
        samples[at + i] += value


def tone(pitch, seconds, level, decay):
    frequency = 440 * 2 ** ((pitch - 69) / 12)
    parts = [(level / k, 2 * math.pi * frequency * k / RATE) for k in range(1, PARTIALS + 1)]
    return [math.exp(-decay * i / RATE) * sum(a * math.sin(w * i) for a, w in parts)
            for i in range(int(seconds * RATE))]


def noise(seconds, level, decay, chance):
    return [level * math.exp(-decay * i / RATE) * chance.uniform(-1, 1)
            for i in range(int(seconds * RATE))]


def kick():
    return [0.5 * math.exp(-25 * i / RATE) * math.sin(2 * math.pi * 55 * i / RATE)
            for i in range(int(0.15 * RATE))]


def bar_of(triad, drums):
    bar = [0.0] * int(BEATS * SECONDS_OF_BEAT * RATE)
    for pitch in triad:
        add(bar, 0, tone(pitch + 12, BEATS * SECONDS_OF_BEAT, 0.06, 0.6))
    for beat in range(BEATS):
        at = int(beat * SECONDS_OF_BEAT * RATE)
        add(bar, at, tone(triad[0] - 12, SECONDS_OF_BEAT, 0.12, 2))
        add(bar, at, drums[beat % 2])
        for half in (0, 1):
            add(bar, at + int(half * SECONDS_OF_BEAT / 2 * RATE), drums[2])
    return bar


def write_band(path, chords, times):
    """The chords, a bar each, so many times; as a WAV file."""
    chance = random.Random(1)
    drums = (kick(), noise(0.15, 0.3, 20, chance), noise(0.04, 0.1, 80, chance))
    bars = {name: bar_of(TRIADS[name], drums) for name in set(chords)}
    round_of_chords = [value for name in chords for value in bars[name]]
    pcm = array.array("h", (int(20000 * max(-1, min(1, value))) for value in round_of_chords))
    with wave.open(str(path), "wb") as file:
        file.setparams((1, 2, RATE, 0, "NONE", ""))
        file.writeframes(pcm.tobytes() * times)
