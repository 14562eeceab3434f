# SPDX-License-Identifier: GPL-3.0-or-later
"""Sounds without a note of a guitar, which the detection must hear nothing in.

Each takes a random generator and answers twenty seconds of sound, of any level.
"""
import numpy as np
from scipy.signal import butter, lfilter
from sounds import RATE, decibels

SECONDS = 20
SAMPLES = SECONDS * RATE


def clicks(r):
    y = np.zeros(SAMPLES)
    for _ in range(int(r.randint(1, 60))):
        y[int(r.randint(SAMPLES))] += r.uniform(-1, 1)
    return y


def bursts(r):
    y = np.zeros(SAMPLES)
    for _ in range(30):
        start = int(r.randint(SAMPLES - RATE))
        n = int(r.uniform(.01, .6) * RATE)
        noise = r.normal(0, 1, n) * np.exp(-np.arange(n) / (r.uniform(.005, .2) * RATE))
        y[start:start + n] += noise * r.uniform(.1, 1)
    return y


def drum(r, t):
    kind = r.randint(3)
    if kind == 0:
        pitch = r.uniform(45, 70)
        glide = r.uniform(10, 60) * .03 * (1 - np.exp(-t / .03))
        return np.sin(2 * np.pi * (pitch * t + glide)) * np.exp(-t / r.uniform(.05, .2))
    if kind == 1:
        skin = r.normal(0, 1, len(t)) + np.sin(2 * np.pi * r.uniform(160, 240) * t)
        return .6 * skin * np.exp(-t / r.uniform(.03, .12))
    b, a = butter(2, .5, 'high')
    return .4 * lfilter(b, a, r.normal(0, 1, len(t))) * np.exp(-t / r.uniform(.02, .2))


def drums(r):
    y = np.zeros(SAMPLES)
    t = np.arange(RATE // 2) / RATE
    for i in range(60):
        start = int((i * .3 + r.normal(0, .01)) % 19 * RATE)
        y[start:start + len(t)] += drum(r, t)
    return y


def noise(r):
    y = r.normal(0, 1, SAMPLES)
    b, a = butter(1, r.uniform(.02, .9))
    return lfilter(b, a, y)


def speech(r):
    """A gliding voice with formants, and hisses."""
    pitch = 110 * 2 ** np.cumsum(r.normal(0, .0006, SAMPLES))
    phase = np.cumsum(pitch) / RATE
    voice = sum(np.sin(2 * np.pi * h * phase) / h for h in range(1, 30))
    syllables = np.abs(r.normal(0, 1, 120)) * (r.rand(120) < .7)
    b, a = butter(1, 6 / (RATE / 2))
    loudness = lfilter(b, a, np.repeat(syllables, SAMPLES // 120 + 1)[:SAMPLES])
    y = np.zeros(SAMPLES)
    for _ in range(2):
        formant = r.uniform(400, 2500) / (RATE / 2)
        b, a = butter(2, [formant * .8, formant * 1.25], 'band')
        y += lfilter(b, a, voice)
    return y * loudness + .05 * r.normal(0, 1, SAMPLES) * np.roll(loudness, 9000)


KINDS = dict(clicks=clicks, bursts=bursts, drums=drums, noise=noise, speech=speech)


def render(kind, r):
    y = KINDS[kind](r)
    y = y / (np.abs(y).max() + 1e-9) * decibels(r.uniform(-30, -1))
    return y + r.normal(0, decibels(r.uniform(-90, -60)), SAMPLES)
