# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays the demo recording of resources/demo on a modelled guitar.

Usage: make_demo.py FILE.wav

A string is the sum of the modes that a pluck at one point excites: mode n has the frequency
n f sqrt(1 + B n^2) of a stiff string and the weight sin(n pi p) / n^2 of a pluck at the fraction p
of its length; it dies away the faster the higher it is. Each mode sounds in two planes of vibration
of slightly different pitch and decay, which gives the slow beat of a real string. The body adds its
resonances. Levels, onsets and plucking points vary a little from note to note, from a fixed seed, so
that every run writes the same samples.

Time is counted in steps of 16384 samples, the blocks that Korvel analyses: a step is an eighth note
at 81 beats a minute, and a note that starts with a step is heard by one block alone.
"""
import array
import cmath
import math
import random
import sys
import wave

RATE = 44100
STEP = 16384
PEAK = 24000

# String 0 is the lowest: its frequency when open, the stiffness B of the string, seconds until the
# fundamental has fallen by 60 dB.
STRINGS = [
    (82.41, 1.2e-4, 10.0),
    (110.00, 1.0e-4, 9.5),
    (146.83, 0.8e-4, 9.0),
    (196.00, 0.7e-4, 8.5),
    (246.94, 0.5e-4, 8.0),
    (329.63, 0.4e-4, 7.5),
]

# What the wooden body adds: frequency, width and gain of its resonances.
BODY = [(102.0, 25.0, 0.5), (205.0, 40.0, 0.7), (410.0, 90.0, 0.4)]

AM, F, C, G = "x02210", "133211", "x32010", "3x0003"

# The piece: step, what to play (a chord by its frets, or string and fret), steps that it sounds,
# how hard it is played.
PIECE = [
    (0, AM, 4, 1.0),
    (4, F, 4, 0.9),
    (8, C, 4, 0.95),
    (12, G, 4, 0.9),
    # Arpeggio of A minor.
    (16, (1, 0), 8, 1.0),
    (17, (2, 2), 7, 0.9),
    (18, (3, 2), 6, 0.9),
    (19, (4, 1), 5, 0.9),
    (20, (5, 0), 4, 1.0),
    (21, (4, 1), 3, 0.8),
    (22, (3, 2), 2, 0.8),
    (23, (2, 2), 1, 0.8),
    # A melody on the highest string.
    (24, (5, 0), 2, 1.0),
    (26, (5, 3), 1, 0.9),
    (27, (5, 5), 1, 0.95),
    (28, (5, 8), 2, 1.0),
    (30, (5, 7), 1, 0.9),
    (31, (5, 5), 1, 0.85),
    (32, (5, 3), 2, 0.95),
    (34, (5, 5), 2, 0.9),
    (36, AM, 4, 1.0),
]


def notes(chance):
    """The piece as single notes: sample of the onset, string, fret, samples, strength."""
    for step, what, steps, strength in PIECE:
        struck = [what] if isinstance(what, tuple) else [
            (string, int(fret)) for string, fret in enumerate(what) if fret != "x"]
        for order, (string, fret) in enumerate(struck):
            late = 0.009 * order + chance.uniform(0.0, 0.004)
            yield (step * STEP + round(late * RATE), string, fret,
                   round(steps * STEP - late * RATE), strength * chance.uniform(0.88, 1.0))


def body_gain(frequency):
    return 1.0 + sum(gain / (1.0 + ((frequency - centre) / width) ** 2)
                     for centre, width, gain in BODY)


def modes(string, fret, pluck):
    """Of a plucked string: complex step per sample and weight of every mode in both planes."""
    open_frequency, stiffness, fall = STRINGS[string]
    base = open_frequency * 2.0 ** (fret / 12.0)
    for n in range(1, 40):
        frequency = n * base * math.sqrt(1.0 + stiffness * n * n)
        if frequency > 9000.0:
            break
        weight = math.sin(n * math.pi * pluck) / (n * n) * body_gain(frequency)
        decay = 6.9 / fall * (1.0 + 0.12 * (n - 1) + (frequency / 1400.0) ** 2)
        for share, detune, faster in ((0.8, 0.0, 1.1), (0.2, 0.12, 0.6)):
            angle = 2.0 * math.pi * (frequency + detune) / RATE
            yield cmath.exp(complex(-decay * faster / RATE, angle)), share * weight


def add_note(sound, start, string, fret, length, strength, chance):
    rise, release = int(0.002 * RATE), int(0.06 * RATE)
    end = min(length + release, len(sound) - start)
    note = [0.0] * end
    for turn, weight in modes(string, fret, chance.uniform(0.17, 0.23)):
        state = complex(0.0, weight)
        audible = abs(weight) * 1e-4
        for i in range(end):
            note[i] += state.real
            state *= turn
            if not i % 512 and abs(state) < audible * 0.1:
                break
    for i in range(end):
        fade = min(1.0, i / rise) * min(1.0, (end - i) / release)
        sound[start + i] += strength * fade * note[i]


def play():
    chance = random.Random(1907)
    sound = [0.0] * (max(step + steps for step, _, steps, _ in PIECE) * STEP + RATE // 2)
    for start, string, fret, length, strength in notes(chance):
        add_note(sound, start, string, fret, length, strength, chance)
    scale = PEAK / max(map(abs, sound))
    return array.array("h", (round(scale * value) for value in sound))


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make_demo.py FILE.wav")
    samples = play()
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(sys.argv[1], "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


if __name__ == "__main__":
    main()
