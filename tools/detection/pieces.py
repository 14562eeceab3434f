# SPDX-License-Identifier: GPL-3.0-or-later
"""Pieces for guitar that make_set has nothing like: strummed, picked, fast, in octaves.

Each takes a random generator and answers a Score of make_set and its seconds.
"""
import make_set

OPEN = make_set.OPEN
SCALES = [(0, 3, 5, 7, 10), (0, 2, 4, 5, 7, 9, 11), (0, 2, 3, 5, 7, 8, 10), (0, 2, 4, 7, 9)]


def grip(label, capo):
    """Strings and pitches of an open chord with a capo."""
    return [(string, pitch + capo) for string, pitch in make_set.shape(label)]


def strum(score, r, start, end, notes, up, strength, damping=None, spread=(.004, .02)):
    for string, pitch in reversed(notes) if up else notes:
        loudness = strength * float(r.uniform(.6, 1))
        score.add(start, max(end, start + .03), pitch, string, loudness, damping)
        start += float(r.uniform(*spread))


def log_chord(score, label, capo, start, end):
    quality = label[1:] or 'maj'
    score.chords.append(dict(start=start, end=end, label=label,
                             root=(make_set.ROOTS[label[0]] + capo) % 12,
                             quality={'m': 'min'}.get(quality, quality)))


def strummed_bar(score, r, start, step, notes):
    """Eight steps of one chord: whole and partial strums, a few of them damped."""
    if r.rand() < .6:
        pattern = [(0, 1), (2, .7), (3, .6), (5, .6), (6, .9), (7, .6)]
    else:
        pattern = [(i, 1 if i % 4 == 0 else .65) for i in range(8)]
    following = [step_number for step_number, _ in pattern[1:]] + [8]
    for (number, strength), after in zip(pattern, following):
        moment = start + number * step
        up = bool(number % 2)
        whole = strength > .8 or r.rand() < .3
        strings = notes if whole or not up else notes[-4:]
        if r.rand() < .08:
            strum(score, r, moment, moment + .05, strings, up, .6 * strength, .01)
        else:
            rings = r.rand() < .8
            end = start + after * step if rings else moment + .6 * (after - number) * step
            strum(score, r, moment, end, strings, up, strength)


def power_chords(score, r, start):
    for _ in range(6):
        pitch = int(r.randint(40, 50))
        string = 0 if pitch < 48 else 1
        length = float(r.choice([.2, .4, .6]))
        notes = [(string, pitch), (string + 1, pitch + 7), (string + 2, pitch + 12)]
        strum(score, r, start, start + length, notes, False, float(r.uniform(.6, 1)),
              spread=(.002, .008))
        start += length
    return start


def strumming(r):
    score, t = make_set.Score(r), .4
    for _ in range(3):
        capo = int(r.randint(0, 8))
        step = 60 / float(r.uniform(80, 150)) / 2
        for label in map(str, r.permutation(list(make_set.SHAPES))[:4]):
            strummed_bar(score, r, t, step, grip(label, capo))
            log_chord(score, label, capo, t, t + 8 * step)
            t += 8 * step
        t = power_chords(score, r, t) + .4
    return score, t + .6


def picked_bar(score, r, start, step, notes):
    """The thumb alternates between two basses, the fingers play between, sometimes together."""
    end = start + 8 * step
    bass = [notes[0], notes[1] if len(notes) > 4 else notes[0]]
    treble = notes[-3:]
    for i in range(8):
        moment = start + i * step
        if i % 2 == 0:
            string, pitch = bass[i // 2 % 2]
            score.add(moment, end, pitch, string, float(r.uniform(.7, 1)))
            if i in (0, 4) and r.rand() < .5:
                string, pitch = treble[2]
                score.add(moment + float(r.normal(0, .004)), end,
                          pitch + int(r.choice([0, 0, 2])), string, float(r.uniform(.5, .9)))
        elif r.rand() < .85:
            string, pitch = treble[int(r.randint(0, 3))]
            score.add(moment + float(r.normal(0, .005)), end, pitch, string,
                      float(r.uniform(.4, .9)))
    return end


def picking(r):
    score, t = make_set.Score(r), .4
    for _ in range(2):
        capo = int(r.randint(0, 6))
        step = float(r.uniform(.12, .22))
        for label in map(str, r.permutation(list(make_set.SHAPES))[:5]):
            end = picked_bar(score, r, t, step, grip(label, capo))
            log_chord(score, label, capo, t, end)
            t = end
        t += .5
    return score, t + .8


def string_near(pitch, hand):
    """The string that has the pitch nearest to the hand."""
    playable = [s for s in range(6) if 0 <= pitch - OPEN[s] <= 22]
    return min(playable, key=lambda s: abs(pitch - OPEN[s] - hand - 1.5))


def solo(r):
    """Lines anywhere on the neck, single notes of all lengths, some of them short."""
    score, t = make_set.Score(r), .4
    for _ in range(4):
        hand = int(r.choice([0, 2, 5, 7, 9, 12, 14]))
        root = int(r.randint(12))
        scale = SCALES[int(r.randint(4))]
        beat = float(r.uniform(.16, .45))
        highest = min(84, 64 + hand + 4)
        for pitch, beats in make_set.tune(r, 22, 40 + hand, highest, scale, root):
            length = beats * beat * .7
            sounding = max(.06, length * float(r.choice([1, .98, .9, .6])))
            score.add(t, t + sounding, pitch, string_near(pitch, hand), float(r.uniform(.35, 1)),
                      cents=float(r.normal(0, 6)))
            t += length
            if r.rand() < .08:
                t += float(r.uniform(.1, .6))
        t += .5
    return score, t + .8


def intervals(r):
    """Octaves, thirds, sixths, tenths: two voices."""
    score, t = make_set.Score(r), .4
    for _ in range(46):
        octave = r.rand() < .4
        length, strength = float(r.uniform(.2, .7)), float(r.uniform(.5, 1))
        string = int(r.randint(0, 4))
        pitch = OPEN[string] + int(r.randint(0, 10))
        upper = pitch + (12 if octave else int(r.choice([3, 4, 7, 8, 9, 15, 16, 19, 24])))
        reach = pitch - OPEN[string] + 4
        other = next((s for s in range(string + 1, 6) if 0 <= upper - OPEN[s] <= reach), None)
        score.add(t, t + length, pitch, string, strength)
        if other is not None:
            late = float(abs(r.normal(0, .006)))
            score.add(t + late, t + length * float(r.uniform(.6, 1)), upper, other,
                      strength * float(r.uniform(.5, 1)))
        t += length * float(r.choice([1, 1, 1.2]))
    return score, t + .8


def ringing(r):
    """Chords and single notes that ring until they are gone."""
    score, t = make_set.Score(r), .5
    for _ in range(12):
        hold = float(r.choice([3.9, 6., 8.]))
        if r.rand() < .5:
            notes = grip(str(r.choice(list(make_set.SHAPES))), int(r.randint(0, 6)))
            strum(score, r, t, t + hold, notes, r.rand() < .4, float(r.uniform(.5, 1)))
        else:
            string = int(r.randint(6))
            pitch = OPEN[string] + int(r.randint(0, 15))
            score.add(t, t + hold, pitch, string, float(r.uniform(.4, 1)))
        t += 4.1 if r.rand() < .6 else float(r.uniform(1.5, 3))
    return score, t + 2


def fast(r):
    """Runs of single notes, each stopped by the next."""
    score, t = make_set.Score(r), .4
    for _ in range(5):
        hand = int(r.choice([0, 2, 5, 7, 9]))
        step = float(r.uniform(.07, .15))
        scale = SCALES[int(r.randint(4))]
        for pitch, _ in make_set.tune(r, 32, 42 + hand, 68 + hand, scale, int(r.randint(12))):
            score.add(t, t + step * float(r.choice([1, 1, .9])), pitch, string_near(pitch, hand),
                      float(r.uniform(.4, 1)))
            t += step
        t += .5
    return score, t + .8


KINDS = dict(ring=ringing, fast=fast, strumming=strumming, picking=picking, solo=solo,
             intervals=intervals)
