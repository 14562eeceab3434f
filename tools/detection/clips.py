# SPDX-License-Identifier: GPL-3.0-or-later
"""Clips: a recording and the notes that sound in it."""
import json
import os

import banks
import make_set
import noises
import numpy as np
import pieces
import places
import restrikes
import soundfile
from sounds import RATE, Guitar, decibels, recorded_badly, softened

COMPUTED = ['synth-' + letter for letter in 'abcdef']
SOURCES = banks.SOURCES + COMPUTED
PIECES = dict(make_set.KINDS, **pieces.KINDS)
PERFORMANCES = ['perf-' + name for name in make_set.GS['dev']]
# Of the other performances each guitar plays some; a recording of this one judges what is heard.
JUDGED = ['03_SS1-68-E_comp']
COMPS, SOLOS = 3, 1
# How a piece is played and recorded.
CLEAN, HARD, ROOM, AMP = 'clean', 'hard', 'room', 'amp'


def further_performances():
    with open(os.path.join(banks.HERE, 'guitarset', 'performances.json')) as file:
        found = json.load(file)
    return {'perf-' + name: performance for name, performance in sorted(found.items())
            if name not in make_set.GS['dev'] + JUDGED}


FURTHER = further_performances()


def performances_of(source):
    """What that guitar plays of them: some accompaniment and a solo."""
    number = SOURCES.index(source)
    comps = [kind for kind in FURTHER if kind.endswith('comp')]
    solos = [kind for kind in FURTHER if kind.endswith('solo')]
    return ([comps[(2 * number + i) % len(comps)] for i in range(COMPS)]
            + [solos[(number + i) % len(solos)] for i in range(SOLOS)])


def bank_of(source):
    return Guitar(source).bank() if source in COMPUTED else banks.build(source)


def performed(performance, r):
    """The first of its notes, as make_set takes them."""
    score = make_set.Score(r)
    end = min(make_set.GS_SECONDS, performance['duration'])
    for onset, duration, pitch, string in performance['notes']:
        fretted = int(round(pitch))
        if onset < end - .1 and 0 <= fretted - make_set.OPEN[string] <= 19:
            score.add(onset, min(onset + duration, end), fretted, string,
                      cents=float(np.clip(100 * (pitch - fretted), -30, 30)))
    return score, end + .5


def score_of(kind, r):
    if kind in FURTHER:
        return performed(FURTHER[kind], r)
    if kind in PERFORMANCES:
        return make_set.gs_track(kind.removeprefix('perf-'), r)
    return PIECES[kind](r)


class SoftBank:
    """A bank whose notes are as dull as the strokes are weak that make_set.render asks them for: by
    string, strings in the order of their first notes."""

    def __init__(self, bank, score, r):
        strings = {}
        for note in sorted(score.notes, key=lambda note: (note['onset'], note['string'])):
            strings.setdefault(note['string'], []).append(note['vel'])
        self.bank, self.r = bank, r
        self.strengths = iter([strength for notes in strings.values() for strength in notes])

    def __getitem__(self, pitch):
        return softened(self.bank[pitch], next(self.strengths), self.r)


def play_cleanly(score, seconds, bank, r):
    return make_set.render(score, seconds, bank, r, detune=float(r.normal(0, 8)))


def play_hard(score, seconds, bank, r):
    """With strokes of all strengths, recorded badly, at any level."""
    weakest = decibels(-float(r.uniform(4, 18)))
    for note in score.notes:
        note['vel'] *= float(np.exp(r.uniform(np.log(weakest), 0)))
    y, notes = make_set.render(score, seconds, SoftBank(bank, score, r), r,
                               detune=float(r.normal(0, 12)), noise_db=-90, peak_db=-3)
    y = recorded_badly(y, r)
    return y * decibels(float(r.uniform(-20, -1))) / np.abs(y).max(), notes


def save(folder, y, kind, source, how, notes, chords, take=''):
    name = '%s_%s_%s%s' % (kind, source, how, take)
    y = np.clip(np.round(y * 32767), -32768, 32767).astype(np.int16)
    path = os.path.join(folder, name)
    soundfile.write(path + '.wav', y, RATE, subtype='PCM_16')
    with open(path + '.json', 'w') as file:
        json.dump(dict(clip=name, kind=kind, source=source, how=how, seconds=len(y) / RATE,
                       samples=len(y), notes=notes, chords=chords), file)


def take_of(seed, room=0):
    """What tells apart clips of the same piece, guitar and way."""
    return ('-%d' % seed if seed > 1 else '') + ('-room%d' % room if room else '')


def render_rooms(folder, y, kind, source, notes, chords, seed, rooms, r):
    for room in rooms:
        save(folder, places.recorded(y, r), kind, source, ROOM, notes, chords,
             take_of(seed, room))


def render_piece(folder, source, bank, kind, hard, seed, rooms):
    """Cleanly and, in so many rooms, the same once more; or hard."""
    r = make_set.rng('fit%d' % seed, source, kind, hard)
    score, seconds = score_of(kind, r)
    if hard:
        y, notes = play_hard(score, seconds, bank, r)
        save(folder, y, kind, source, HARD, notes, score.chords, take_of(seed))
        return
    y, notes = play_cleanly(score, seconds, bank, r)
    save(folder, y, kind, source, CLEAN, notes, score.chords, take_of(seed))
    render_rooms(folder, y, kind, source, notes, score.chords, seed, range(rooms), r)


def treated(y, r):
    """As it sounds where it is not recorded cleanly, and a word for it."""
    if r.rand() < .6:
        return places.recorded(y, r), ROOM
    if r.rand() < .6:
        return places.amplified(y, r), AMP
    y = recorded_badly(y, r)
    return y * decibels(float(r.uniform(-20, -1))) / np.abs(y).max(), HARD


def render_restruck(folder, source, bank, kind, seed, rooms):
    """A piece whose strings are struck again while they ring: cleanly, otherwise, and in further
    rooms."""
    r = make_set.rng('restruck%d' % seed, source, kind)
    if kind in PERFORMANCES:
        score, seconds = score_of(kind, r)
        for note in score.notes:
            note['vel'] = float(r.uniform(.3, 1))
    else:
        score, seconds = restrikes.KINDS[kind](r)
    y, notes = restrikes.render(score, seconds, bank, r, detune=float(r.normal(0, 8)))
    name = 'restruck-' + kind
    save(folder, y, name, source, CLEAN, notes, score.chords, take_of(seed))
    other, how = treated(y, r)
    save(folder, other, name, source, how, notes, score.chords, take_of(seed))
    render_rooms(folder, y, name, source, notes, score.chords, seed, range(1, rooms), r)


def render_noise(folder, source, kind):
    y = noises.render(kind, make_set.rng('nothing', source, kind))
    save(folder, y, 'nothing-' + kind, source, HARD, [], [])


def render_source(folder, source, kinds, seed, rooms):
    """All clips of one source, but for kinds that are not among those asked for, if any are; in so
    many rooms. With each computed guitar go sounds without a note."""
    bank = bank_of(source)
    for kind in list(PIECES) + performances_of(source):
        if not kinds or kind in kinds:
            for hard in (False, True):
                render_piece(folder, source, bank, kind, hard, seed, rooms)
    for kind in list(restrikes.KINDS) + PERFORMANCES:
        if not kinds or 'restruck-' + kind in kinds:
            render_restruck(folder, source, bank, kind, seed, rooms)
    for kind in noises.KINDS if source in COMPUTED else []:
        if not kinds or 'nothing-' + kind in kinds:
            render_noise(folder, source, kind)
