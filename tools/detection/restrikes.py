# SPDX-License-Identifier: GPL-3.0-or-later
"""Strings that are struck again while they ring.

make_set.render stops a string before it strikes it again. Here it goes on: the pick touches it for a
moment, which takes a part of what rings and more of its high partials, and adds a new stroke, whose
partials have phases of their own and beat with what is left. Pieces are those in which that happens.
"""
import banks
import make_set
import numpy as np
import pieces
from scipy.signal import butter, lfilter
from sounds import RATE, decibels, softened

STOP = .008  # seconds in which a finger stops a string
DAMP = .012  # time constant of a string that is damped
LONGEST = 6  # seconds


class Pick:
    """What a stroke does besides giving the string a tone; the same for a whole piece."""

    def __init__(self, r):
        self.noise = decibels(-float(r.uniform(18, 45)))
        self.length = float(r.uniform(.003, .012))
        self.filter = butter(2, float(r.uniform(1500, 3500)) / (RATE / 2), 'high')
        self.touch = float(r.uniform(.001, .012))
        self.left = sorted(r.uniform(0, 1, 2))
        self.dull = float(r.uniform(500, 6000))
        self.softens = r.rand() < .5

    def click(self, r, strength):
        t = np.arange(int(6 * self.length * RATE)) / RATE
        rise = np.minimum(1, t / .001)
        noise = lfilter(*self.filter, r.normal(0, 1, len(t))) * rise * np.exp(-t / self.length)
        return noise * strength * self.noise * float(r.uniform(.4, 1))

    def touched(self, tail, r):
        """What is left of a string's sound from the moment on in which it is struck again."""
        n = min(len(tail), max(2, int(self.touch * RATE)))
        b, a = butter(1, min(.9, self.dull * float(r.uniform(.6, 1.6)) / (RATE / 2)))
        left = float(r.uniform(*self.left)) * lfilter(b, a, tail)
        fade = np.ones(len(tail))
        fade[:n] = np.linspace(0, 1, n)
        return tail * (1 - fade) + left * fade


def damped(tail, tau):
    return tail * np.exp(-np.arange(len(tail)) / (tau * RATE))


class String:
    """The sound of one string."""

    def __init__(self, samples):
        self.y = np.zeros(samples)
        self.until = 0

    def change(self, start, change):
        start = max(0, start)
        if start < self.until:
            self.y[start:self.until] = change(self.y[start:self.until])

    def add(self, start, wave):
        end = min(len(self.y), start + len(wave))
        self.y[start:end] += wave[:end - start]
        self.until = max(self.until, end)


def stop(tail):
    n = min(len(tail), int(STOP * RATE))
    gain = np.zeros(len(tail))
    gain[:n] = np.linspace(1, 0, n)
    return tail * gain


def strike(string, note, before, wave, pick, r):
    """Before a stroke a string stops, unless it is struck where it rings already."""
    start = int(round(note['onset'] * RATE))
    if before and before['midi'] == note['midi'] and before['off'] > note['onset'] - .03:
        string.change(start - int(pick.touch * RATE * r.rand()), lambda tail: pick.touched(tail, r))
    else:
        string.change(start - int(STOP * RATE), stop)
    string.add(start, wave)
    string.add(max(0, start - int(r.uniform(0, .006) * RATE)), pick.click(r, np.abs(wave).max()))


class Tuned:
    """The notes of a bank as a string has them that is out of tune, in cents."""

    def __init__(self, bank, cents):
        self.bank, self.cents, self.known = bank, cents, {}

    def wave(self, note):
        key = note['midi'], note['cents']
        if key not in self.known:
            wave = banks.shift(self.bank[note['midi']], (self.cents + note['cents']) / 100)
            self.known[key] = wave[:int(LONGEST * RATE)]
        return self.known[key] * note['vel']


def play_string(samples, notes, bank, cents, pick, r):
    string, truth, tuned = String(samples), [], Tuned(bank, cents)
    for number, note in enumerate(notes):
        wave = tuned.wave(note)
        if pick.softens:
            wave = softened(wave, note['vel'], r)
        strike(string, note, notes[number - 1] if number else None, wave, pick, r)
        following = notes[number + 1] if number + 1 < len(notes) else None
        cut = following['onset'] if following else 1e9
        if note['off'] < cut - (.03 if following and following['midi'] == note['midi'] else 0):
            string.change(int(note['off'] * RATE), lambda tail: damped(tail, note['tau'] or DAMP))
        truth.append((note, cut))
    return string.y, truth


def label(note, cut, y):
    """The note as it was heard: until its own sound is 40 dB down, or the string's next stroke."""
    start = int(round(note['onset'] * RATE))
    end = int(min(cut, note['off'] + 6 * (note['tau'] or DAMP), len(y) / RATE) * RATE)
    audible = banks.audible(y[start:end]) if end - start > RATE // 50 else .02
    return dict(onset=start / RATE, offset=start / RATE + audible, midi=note['midi'],
                string=note['string'], fret=note['fret'])


def render(score, seconds, bank, r, detune=0.):
    """The sound and its notes, as make_set.render answers them."""
    samples = int((seconds + 1) * RATE)
    y, notes, pick = np.zeros(samples), [], Pick(r)
    for string in range(6):
        played = sorted((note for note in score.notes if note['string'] == string),
                        key=lambda note: note['onset'])
        sound, truth = play_string(samples, played, bank, float(r.normal(0, 2)) + detune, pick, r)
        notes += [label(note, cut, sound) for note, cut in truth]
        y += sound
    for moment in scratches(score, seconds, r):
        click = 2 * pick.click(r, .5)
        y[int(moment * RATE):][:len(click)] += click
    y = y[:int(seconds * RATE)]
    y = y / (np.abs(y).max() + 1e-9) * decibels(-float(r.uniform(2, 9)))
    y += r.normal(0, decibels(-66), len(y))
    return y, sorted(notes, key=lambda note: (note['onset'], note['midi']))


def scratches(score, seconds, r):
    """Moments at which the pick, or a finger that slides, is heard but no string is struck."""
    count = int(r.randint(0, 1 + int(seconds)))
    return r.uniform(0, seconds - .5, count)


def chord_notes(r):
    """An open chord, a barre of it, or a grip of three or four strings anywhere."""
    notes = pieces.grip(str(r.choice(list(make_set.SHAPES))), int(r.randint(0, 9)))
    if r.rand() < .3:
        first = int(r.randint(0, len(notes) - 2))
        notes = notes[first:first + int(r.randint(3, 5))]
    return notes


def some_strings(r, notes):
    """Those that a stroke reaches: neighbours, few or all."""
    count = int(r.randint(1, len(notes) + 1))
    first = int(r.randint(0, len(notes) - count + 1))
    return notes[first:first + count]


def comping(r):
    """Chords whose strings ring while some of them are struck again, and again."""
    score, t = make_set.Score(r), .4
    for _ in range(3):
        step = float(r.choice([1, 1, .5])) * 60 / float(r.uniform(60, 130)) / 2
        loud, whole = float(r.uniform(.3, 1)), float(r.uniform(.2, 1))
        spread = (.001, float(r.uniform(.004, .03)))
        for _ in range(3):
            t = comped_bar(score, r, t, step, (loud, whole, spread))
        t += float(r.uniform(0, .6))
    return score, t + .8


def comped_bar(score, r, t, step, manner):
    loud, whole, spread = manner
    notes, end = chord_notes(r), t + 8 * step
    struck = [i for i in range(8) if i == 0 or r.rand() < .62]
    last = {}
    for i in struck:
        strings = notes if i == 0 or r.rand() < whole * .6 else some_strings(r, notes)
        first = len(score.notes)
        pieces.strum(score, r, t + i * step + float(r.normal(0, .006)), end, strings,
                     r.rand() < .4, loud if i == 0 else loud * float(r.uniform(.35, 1.2)),
                     spread=spread)
        for note in score.notes[first:]:
            last[note['string']] = note
        if r.rand() < .15:
            for note in last.values():
                note['off'] = min(end, note['onset'] + float(r.uniform(.3, .9)) * step)
    return end


def repeated(r):
    """Single notes and double stops several times each, some over a bass that rings."""
    score, t = make_set.Score(r), .4
    for _ in range(12):
        string, times = int(r.randint(0, 5)), int(r.randint(2, 8))
        pitch = make_set.OPEN[string] + int(r.randint(0, 13))
        step, rings = float(r.uniform(.1, .45)), r.rand() < .8
        lines = [(string, pitch)]
        if r.rand() < .5:
            other = make_set.OPEN[string + 1] + int(np.clip(
                pitch - make_set.OPEN[string] + r.randint(-2, 3), 0, 14))
            lines.append((string + 1, other))
        if string > 1 and r.rand() < .5:
            bass = make_set.OPEN[string - 2] + int(r.randint(0, 8))
            score.add(t, t + times * step, bass, string - 2, float(r.uniform(.4, 1)))
        for i in range(times):
            for line_string, line_pitch in lines:
                if i == 0 or r.rand() < .7:
                    moment = t + i * step + float(abs(r.normal(0, .005)))
                    score.add(moment, t + times * step if rings else moment + .6 * step, line_pitch,
                              line_string, float(r.uniform(.35, 1)))
        t += times * step + float(r.choice([0, 0, .3]))
    return score, t + .8


def picked(r):
    """Fingers that come back to strings which ring."""
    return pieces.picking(r)


KINDS = dict(comping=comping, comping2=comping, comping3=comping, repeated=repeated,
             repicked=picked)
