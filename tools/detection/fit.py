#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fits the formulas and the networks of the precise detection and writes their tables.

Usage: fit.py --clips DIR --features DIR [--only strikes|judges|onsets|ends] [--without a,b]
              [--out DIR]

--clips has the notes of the recordings, as render.py writes them, --features what
korvel-detection-features wrote of them. --only fits the networks for strings that are struck again,
those that correct the formula for notes, those for onsets, or those for ends; the rest stays.
--without leaves guitars out, to measure with them. Writes StrikeWeights.cpp, NoteWeights.cpp,
OnsetWeights.cpp, EndWeights.cpp and Tables.cpp of the source tree by default. Prints how well the
result does on guitars that it was not fitted on: the mean loss, and the share of the weight that is
decided rightly.
"""
import argparse
import glob
import json
import os
import sys

import numpy as np

sys.dont_write_bytecode = True

import networks
import tables
from company import company

PRECISE = os.path.join(os.path.dirname(os.path.abspath(__file__)), '../../src/precise')
TABLES = 'judging/Tables.cpp'
STRIKES, JUDGES, ONSETS, ENDS = ('striking/StrikeWeights', 'judging/NoteWeights',
                                 'striking/OnsetWeights', 'ending/EndWeights')
FOLDS = 4
L2 = 3.0
STEPS = 12
WEIGHTS = dict(clean=1, hard=.4, room=.4, amp=.4)
# Of what is not clean, for the networks.
STRIKE_WEIGHT = .7
END_WEIGHTS = dict(clean=1, hard=.6, room=.8, amp=.6)
JUDGE_WEIGHTS = dict(clean=1, hard=1.5, room=1, amp=2.5)  # most clips are in rooms
# Where strings are struck again few notes end, and notes that ring until they are gone are rare.
RESTRUCK_WEIGHT, RINGING_WEIGHT, RINGING = .4, 1.5, ('chords', 'ring')
# How often a network is shown all.
STRIKE_EPOCHS, JUDGE_EPOCHS, ONSET_EPOCHS, END_EPOCHS = 8, 6, 3, 3
# For the networks: what it counts that a candidate starts with a note, and what its share of notes;
# less probable ones are surely none.
STARTED, SHARED, LEAST = .7, .3, .01
# Of recordings without notes, for the networks that judge notes.
NOTHING_WEIGHT = 9
SAME_ONSET = .06  # seconds
# Of what a feature was, in percent; the rest is taken as the nearest of these.
RANGE = (.2, 99.8)
LOWEST_PITCH, PITCHES = 38, 50
REATTACK_COLUMNS, NOTE_COLUMNS, ONSET_COLUMNS, FRAME_COLUMNS = 4, 5, 4, 3
# What is seen around an onset, as OnsetInputs.h has it: numbers a frame; frames in which a note may
# begin, and which are seen beyond these, on either side.
SERIES, REACH, AROUND = 7, 8, 6
# The true onset may lie so far off; a frame within WIDTH of it counts the more, the nearer it is.
FARTHEST, NEAR, WIDTH = .1, .05, 1.5  # seconds, seconds, frames


class Clip:
    """The candidates in one recording and what they truly are."""

    def __init__(self, labels_file, features_file, width):
        with open(labels_file) as file:
            labels = json.load(file)
        with open(features_file) as file:
            seen = json.load(file)
        self.source, self.hop = labels['source'], seen['hop']
        self.weight = WEIGHTS[labels['how']]
        reattacks = np.array(seen['reattacks'], np.float32).reshape(
            len(seen['reattacks']), -1 if seen['reattacks'] else REATTACK_COLUMNS)
        notes = np.array(seen['notes']).reshape(-1, NOTE_COLUMNS + width)
        self.reattacks, self.notes = reattacks[:, REATTACK_COLUMNS:], notes[:, NOTE_COLUMNS:]
        self.pitch, self.onset, self.end, self.peak, self.by_itself = notes[:, :NOTE_COLUMNS].T
        self.struck = self.struck_again(seen['tracked'], reattacks, labels['notes'])
        self.true_share = self.shares(labels['notes'])
        started = np.isfinite(self.distances(notes, labels['notes'], NEAR))
        self.judged = STARTED * started + SHARED * self.true_share
        self.reattack_weights = np.full(len(reattacks), max(self.weight, STRIKE_WEIGHT),
                                        np.float32)
        onsets = np.array(seen['onsets'], np.float32).reshape(
            len(seen['onsets']), ONSET_COLUMNS + SERIES * (2 * (REACH + AROUND) + 1))
        distances = self.distances(onsets, labels['notes'], FARTHEST)
        near = np.abs(distances) <= REACH + .5
        self.begins, self.beginning = begins(onsets[near], distances[near])
        self.begin_weights = np.full(len(self.begins), onset_weight(labels), np.float32)
        frames = np.array(seen['frames'], np.float32).reshape(
            len(seen['frames']), -1 if seen['frames'] else FRAME_COLUMNS)
        frames = frames[self.are_of_notes(frames, labels['notes'])]
        self.frames = frames[:, FRAME_COLUMNS:]
        self.sounding = self.are_sounding(frames, labels['notes'])
        self.frame_weights = np.full(len(frames), frame_weight(labels), np.float32)
        self.judge_weights = judge_weight(labels) * (
            .6 + np.minimum((self.end - self.onset) * self.hop, 2))
        self.note_weights = self.weight * (.6 + np.minimum((self.end - self.onset) * self.hop, 2))

    def struck_again(self, tracked, reattacks, notes):
        """1 for each re-attack that is the candidate nearest to a true onset of its pitch. Every
        candidate and every onset has one partner at most, the nearest first."""
        onsets = {}
        for pitch, onset, _ in tracked:
            onsets.setdefault(pitch, []).append(onset)
        pairs = sorted((abs(onset * self.hop - note['onset']), number, note['midi'], onset)
                       for number, note in enumerate(notes)
                       for onset in onsets.get(note['midi'], []))
        heard, found = set(), set()
        for distance, number, pitch, onset in pairs:
            if distance <= SAME_ONSET and number not in heard and (pitch, onset) not in found:
                heard.add(number)
                found.add((pitch, onset))
        return np.array([(pitch, onset) in found for pitch, onset in reattacks[:, :2]], float)

    def distances(self, onsets, notes, farthest):
        """How many frames the true note begins after each tracked onset; infinity where there is
        none. Each has one partner at most, the nearest first."""
        pairs = []
        for number, note in enumerate(notes):
            for i in np.flatnonzero(onsets[:, 0] == note['midi']):
                distance = note['onset'] - onsets[i, 1] * self.hop
                if abs(distance) <= farthest:
                    pairs.append((abs(distance), number, i, distance))
        distances = np.full(len(onsets), np.inf)
        heard = set()
        for _, number, i, distance in sorted(pairs):
            if number not in heard and np.isinf(distances[i]):
                heard.add(number)
                distances[i] = distance / self.hop
        return distances

    def shares(self, notes):
        """How much of each candidate lies in true notes of its pitch."""
        shares = np.zeros(len(self.pitch))
        for note in notes:
            common = (np.minimum(self.end * self.hop, note['offset'])
                      - np.maximum(self.onset * self.hop, note['onset']))
            shares += np.where(self.pitch == note['midi'], np.maximum(common, 0), 0)
        return np.minimum(1, shares / np.maximum((self.end - self.onset) * self.hop, 1e-3))

    def are_of_notes(self, frames, notes):
        """Whether what was taken for a note was one when it began."""
        found = np.zeros(len(frames), bool)
        onset = frames[:, 1] * self.hop
        for note in notes:
            found |= ((frames[:, 0] == note['midi']) & (note['onset'] < onset + SAME_ONSET)
                      & (note['offset'] > onset))
        return found

    def are_sounding(self, frames, notes):
        """1 for each frame in which the note, or another of its pitch, still sounds."""
        found = np.zeros(len(frames))
        moment = frames[:, 2] * self.hop
        for note in notes:
            found[(frames[:, 0] == note['midi']) & (note['onset'] <= moment)
                  & (moment < note['offset'])] = 1
        return found

    def add_company(self, probability, names):
        """Replaces the company by that of other probabilities than the engine's."""
        found = company(self.pitch, self.onset, self.end, self.peak, probability, self.hop)
        for name, values in found.items():
            self.notes[:, names.index(name)] = values


OFFSETS = range(-REACH, REACH + 1)


def begins(onsets, distances):
    """What the network is shown of frames in which a note may begin, and how near they are to where
    it does. Of those far from that every third."""
    places, seen = onsets[:, :ONSET_COLUMNS], onsets[:, ONSET_COLUMNS:]
    seen = seen.reshape(len(seen), SERIES, 2 * (REACH + AROUND) + 1)
    pitch = (places[:, :1] - LOWEST_PITCH) / PITCHES
    rows, near = [], []
    for offset in OFFSETS:
        share = np.maximum(0, 1 - np.abs(offset - distances) / WIDTH)
        kept = (share > 0) | ((np.arange(len(seen)) + offset) % 3 == 0)
        around = seen[kept, :, offset + REACH:offset + REACH + 2 * AROUND + 1]
        rows.append(np.hstack([around.reshape(-1, SERIES * (2 * AROUND + 1)),
                               np.full((len(around), 1), offset), pitch[kept], places[kept, 3:]]))
        near.append(share[kept])
    return np.vstack(rows).astype(np.float32), np.concatenate(near)


def onset_weight(labels):
    return END_WEIGHTS[labels['how']] * (.5 if labels['kind'].startswith('restruck') else 1)


def judge_weight(labels):
    nothing = labels['kind'].startswith('nothing')
    return NOTHING_WEIGHT if nothing else JUDGE_WEIGHTS[labels['how']]


def frame_weight(labels):
    kind = labels['kind']
    weight = END_WEIGHTS[labels['how']]
    if kind in RINGING:
        return weight * RINGING_WEIGHT
    return weight * (RESTRUCK_WEIGHT if kind.startswith('restruck') else 1)


class Samples:
    """The candidates of all clips in one table: features, targets and weights."""

    def __init__(self, features, targets, weights, folds):
        self.features = np.vstack(features)
        self.targets, self.weights = np.concatenate(targets), np.concatenate(weights)
        self.folds = np.repeat(folds, [len(rows) for rows in features])
        self.least, self.most = np.percentile(self.features, RANGE, axis=0)
        self.least[0] = self.most[0] = 1
        self.features = np.clip(self.features, self.least, self.most)

    def terms(self, terms, chosen):
        first, second = np.array(terms).T
        rows = self.features[chosen]
        return rows[:, first] * rows[:, second]

    def fit(self, terms, chosen=slice(None)):
        return fit_logistic(self.terms(terms, chosen), self.targets[chosen], self.weights[chosen])

    def probabilities(self, name, terms):
        """Of each candidate, by a formula that was fitted on the sources of other folds."""
        found = np.zeros(len(self.targets))
        for fold in np.unique(self.folds):
            chosen = self.folds == fold
            found[chosen] = logistic(self.terms(terms, chosen) @ self.fit(terms, ~chosen))
        report(name, found, self.targets, self.weights)
        return found


def report(name, found, targets, weights):
    p, y = np.clip(found, 1e-9, 1 - 1e-9), targets
    loss = -(y * np.log(p) + (1 - y) * np.log(1 - p))
    right = (p > .5) == (y > .5)
    print('%s: %d candidates, loss %.4f, right %.4f'
          % (name, len(y), np.average(loss, weights=weights),
             np.average(right, weights=weights)), flush=True)


def logistic(z):
    return 1 / (1 + np.exp(-np.clip(z, -40, 40)))


def fit_logistic(terms, targets, weights):
    """The weights of a logistic regression, by Newton's method. Terms count by their spread; the
    first, a constant, is not held down."""
    spread = terms.std(axis=0)
    spread[spread == 0] = 1
    scaled = terms / spread
    held = np.full(scaled.shape[1], L2)
    held[0] = 0
    found = np.zeros(scaled.shape[1])
    for _ in range(STEPS):
        p = logistic(scaled @ found)
        slope = scaled.T @ (weights * (p - targets)) + held * found
        curvature = (scaled * (weights * p * (1 - p))[:, None]).T @ scaled
        step = np.linalg.solve(curvature + np.diag(held + 1e-6), slope)
        found -= step
        if np.abs(step).max() < 1e-6:
            break
    return found / spread


def read_clips(options, width):
    clips = []
    for labels in sorted(glob.glob(os.path.join(options.clips, '*.json'))):
        features = os.path.join(options.features, os.path.basename(labels))
        if os.path.exists(features):
            clip = Clip(labels, features, width)
            if clip.source not in options.without.split(','):
                clips.append(clip)
    return clips


def folds_of(clips):
    """A number for each clip; clips of one source have the same."""
    sources = sorted({clip.source for clip in clips})
    if len(sources) < 2:
        raise SystemExit('fit.py: needs clips and features of two sources at least')
    return [sources.index(clip.source) % FOLDS for clip in clips]


def fit_networks(file, title, samples, folds, epochs):
    """The text of that source. samples: of each clip the inputs, targets and weights, and what is
    added to the odds."""
    samples = [sample if len(sample) > 3 else (*sample, np.zeros(len(sample[1]), np.float32))
               for sample in samples]
    chosen = [number for number, sample in enumerate(samples) if len(sample[0])]
    inputs, targets, weights, base = (np.concatenate(parts)
                                for parts in zip(*(samples[number] for number in chosen)))
    of_fold = np.repeat([folds[number] for number in chosen],
                        [len(samples[number][1]) for number in chosen])
    found = np.zeros(len(targets))
    for fold in np.unique(of_fold):
        there = of_fold == fold
        fitted = networks.Networks(inputs[~there], targets[~there], weights[~there], epochs,
                                   base[~there])
        found[there] = logistic(fitted.odds(inputs[there]) + base[there])
    report(title, found, targets, weights)
    return networks.file_text(file, networks.Networks(inputs, targets, weights, epochs, base))


def fit_strikes(clips, folds):
    samples = [(clip.reattacks, clip.struck, clip.reattack_weights) for clip in clips]
    return fit_networks(STRIKES, 'struck again', samples, folds, STRIKE_EPOCHS)


def fit_judges(clips, folds):
    """What the formula for notes in company, as built, leaves to be said."""
    with open(os.path.join(PRECISE, 'judging/Tables.h')) as file:
        names = tables.names_of(file.read(), 'NoteFeature')
    with open(os.path.join(PRECISE, TABLES)) as file:
        source = file.read()
    terms, weights = tables.terms_in(source, 'companyTerms', names)
    least, most = tables.ranges_in(source, 'NoteFeature')
    first, second = np.array(terms).T
    samples = []
    for clip in clips:
        kept = clip.by_itself > LEAST
        notes = clip.notes[kept]
        limited = np.clip(notes, least, most)
        odds = (limited[:, first] * limited[:, second]) @ weights
        samples.append((notes[:, 1:].astype(np.float32), clip.judged[kept],
                        clip.judge_weights[kept].astype(np.float32), odds.astype(np.float32)))
    return fit_networks(JUDGES, 'notes by networks', samples, folds, JUDGE_EPOCHS)


def fit_onsets(clips, folds):
    samples = [(clip.begins, clip.beginning, clip.begin_weights) for clip in clips]
    return fit_networks(ONSETS, 'onsets', samples, folds, ONSET_EPOCHS)


def fit_ends(clips, folds):
    samples = [(clip.frames, clip.sounding, clip.frame_weights) for clip in clips]
    return fit_networks(ENDS, 'ends', samples, folds, END_EPOCHS)


def fit_notes(clips, folds, names):
    """First each candidate by itself; then in the company of others, with the probabilities that
    those have by themselves if the formula does not know their guitar."""
    def samples_of(count):
        return Samples([clip.notes[:, :count] for clip in clips],
                       [clip.true_share for clip in clips],
                       [clip.note_weights for clip in clips], folds)
    enum = 'NoteFeature'
    alone = names[:names.index('Odds')]
    samples = samples_of(len(alone))
    terms = tables.terms_of(alone, tables.NOTE_PRODUCTS)
    probability = samples.probabilities('notes by themselves', terms)
    by_itself = tables.terms_text('noteTerms', enum, names, terms, samples.fit(terms))

    starts = np.cumsum([0] + [len(clip.notes) for clip in clips])
    for clip, start in zip(clips, starts):
        clip.add_company(probability[start:start + len(clip.notes)], names)
    samples = samples_of(len(names))
    terms = tables.terms_of(names, tables.NOTE_PRODUCTS)
    samples.probabilities('notes in company', terms)
    return (by_itself, tables.terms_text('companyTerms', enum, names, terms, samples.fit(terms)),
            tables.ranges_text(enum, names, samples.least, samples.most))


def write(options, file, text):
    path = os.path.join(PRECISE, file)
    if options.out:
        path = os.path.join(options.out, os.path.basename(file))
    with open(path, 'w') as written:
        written.write(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--clips', required=True, metavar='DIR')
    parser.add_argument('--features', required=True, metavar='DIR')
    parser.add_argument('--out', metavar='DIR')
    parser.add_argument('--only', choices=['strikes', 'judges', 'onsets', 'ends'])
    parser.add_argument('--without', default='', help='guitars')
    options = parser.parse_args()
    with open(os.path.join(PRECISE, 'judging/Tables.h')) as file:
        header = file.read()
    note_names = tables.names_of(header, 'NoteFeature')
    clips = read_clips(options, len(note_names))
    folds = folds_of(clips)
    for name, file, fitted in (('strikes', STRIKES, fit_strikes), ('judges', JUDGES, fit_judges),
                               ('onsets', ONSETS, fit_onsets), ('ends', ENDS, fit_ends)):
        if options.only in (None, name):
            write(options, file + '.cpp', fitted(clips, folds))
    if not options.only:
        write(options, TABLES, tables.file_text(fit_notes(clips, folds, note_names)))


if __name__ == '__main__':
    main()
