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
# How a piece is played and recorded.
CLEAN, HARD, ROOM, AMP = 'clean', 'hard', 'room', 'amp'


def bank_of(source):
    return Guitar(source).bank() if source in COMPUTED else banks.build(source)


def score_of(kind, r):
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


def save(folder, y, kind, source, how, notes, chords):
    name = '%s_%s_%s' % (kind, source, how)
    y = np.clip(np.round(y * 32767), -32768, 32767).astype(np.int16)
    path = os.path.join(folder, name)
    soundfile.write(path + '.wav', y, RATE, subtype='PCM_16')
    with open(path + '.json', 'w') as file:
        json.dump(dict(clip=name, kind=kind, source=source, how=how, seconds=len(y) / RATE,
                       samples=len(y), notes=notes, chords=chords), file)


def render_piece(folder, source, bank, kind, hard, seed):
    """Cleanly and, in another place, the same once more; or hard."""
    r = make_set.rng('fit%d' % seed, source, kind, hard)
    score, seconds = score_of(kind, r)
    if hard:
        y, notes = play_hard(score, seconds, bank, r)
        save(folder, y, kind, source, HARD, notes, score.chords)
        return
    y, notes = play_cleanly(score, seconds, bank, r)
    save(folder, y, kind, source, CLEAN, notes, score.chords)
    save(folder, places.recorded(y, r), kind, source, ROOM, notes, score.chords)


def treated(y, r):
    """As it sounds where it is not recorded cleanly, and a word for it."""
    if r.rand() < .6:
        return places.recorded(y, r), ROOM
    if r.rand() < .6:
        return places.amplified(y, r), AMP
    y = recorded_badly(y, r)
    return y * decibels(float(r.uniform(-20, -1))) / np.abs(y).max(), HARD


def render_restruck(folder, source, bank, kind, seed):
    """A piece whose strings are struck again while they ring: cleanly, and otherwise."""
    r = make_set.rng('restruck%d' % seed, source, kind)
    if kind in PERFORMANCES:
        score, seconds = score_of(kind, r)
        for note in score.notes:
            note['vel'] = float(r.uniform(.3, 1))
    else:
        score, seconds = restrikes.KINDS[kind](r)
    y, notes = restrikes.render(score, seconds, bank, r, detune=float(r.normal(0, 8)))
    name = 'restruck-' + kind
    save(folder, y, name, source, CLEAN, notes, score.chords)
    other, how = treated(y, r)
    save(folder, other, name, source, how, notes, score.chords)


def render_noise(folder, source, kind):
    y = noises.render(kind, make_set.rng('nothing', source, kind))
    save(folder, y, 'nothing-' + kind, source, HARD, [], [])


def render_source(folder, source, kinds, seed):
    """All clips of one source, but for kinds that are not among those asked for, if any are. With
    each computed guitar go sounds without a note."""
    bank = bank_of(source)
    for kind in list(PIECES) + PERFORMANCES:
        if not kinds or kind in kinds:
            for hard in (False, True):
                render_piece(folder, source, bank, kind, hard, seed)
    for kind in list(restrikes.KINDS) + PERFORMANCES:
        if not kinds or 'restruck-' + kind in kinds:
            render_restruck(folder, source, bank, kind, seed)
    for kind in noises.KINDS if source in COMPUTED else []:
        if not kinds or 'nothing-' + kind in kinds:
            render_noise(folder, source, kind)
