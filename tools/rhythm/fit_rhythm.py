#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fits the weights by which the best reading of a piece is chosen.

Usage: fit_rhythm.py --bench DIR --readings PROGRAM [--performances FILE] [--pieces N] [--out FILE]
  --bench         folder of a rhythm benchmark with compose.py and train_set.py
  --readings      the built korvel-rhythm-readings, which lists the readings of pieces
  --performances  real performances with their beats, of which parts are used, too
  --without       folder of a labelled set whose performances are left out
  --heard         folder of more pieces: of each the truth, NAME.json, and what "korvel-cli transcribe --json"
                  heard of it, NAME.heard.json
  --pieces        how many pieces are made in each of two ways (default: 600), an eighth as many jigs, and a third
                  as many in triplets or swing
  --free          the weights that are fitted, with commas; the others stay (default: all)
  --out           writes the table of weights there

A conditional logit: the probability of a reading is exp(score) among all readings of its piece, and the
weights are those that make right readings most probable. Every third piece is held out; prints how often
the choice is right before and after.
"""
import argparse
import json
import pathlib
import re
import subprocess
import sys

import numpy as np
from scipy.optimize import minimize

sys.dont_write_bytecode = True
import rhythm_pieces

NEAR = 0.07         # seconds: a beat is right
SHRINK = 0.004      # of squares of weights in units of their features' deviations
HOLD = 5.0          # the same, of weights that are to stay
CROPS = 10          # parts of each performance
PERFORMED = 3.0     # how much one of them counts
# Weights that pieces which are cut anywhere would make too small: most recordings start on a bar line.
LEAST = {"startsOnBar": 0.8, "endsOnBar": 0.3}
PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent


def arguments():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--bench", type=pathlib.Path, required=True)
    parser.add_argument("--readings", type=pathlib.Path, required=True)
    parser.add_argument("--performances", type=pathlib.Path)
    parser.add_argument("--without", type=pathlib.Path)
    parser.add_argument("--heard", type=pathlib.Path)
    parser.add_argument("--pieces", type=int, default=600)
    parser.add_argument("--first", type=int, default=100000, help="the first seed")
    parser.add_argument("--free", type=lambda names: names.split(","))
    parser.add_argument("--out", type=pathlib.Path)
    return parser.parse_args()


def make_pieces(options):
    """(kind, notes, truth) of each."""
    sys.path.insert(0, str(options.bench))
    import compose
    import train_set
    seeds = range(options.first, options.first + options.pieces)
    pieces = [("own", *rhythm_pieces.own_piece(compose, seed)) for seed in seeds]
    pieces += [("jig", *rhythm_pieces.own_piece(compose, seed, "jig")) for seed in seeds[::8]]
    pieces += [("triplets", *rhythm_pieces.own_piece(compose, seed, "triplets")) for seed in seeds[::3]]
    pieces += [("listed", *rhythm_pieces.listed_piece(train_set, seed)) for seed in seeds]
    if options.performances:
        known = {clip["clip"] for clip in json.loads((options.without / "index.json").read_text())} \
            if options.without else set()
        for name, performance in json.loads(options.performances.read_text()).items():
            if name.replace("#", "s") in known:
                continue
            pieces += [("performed " + name, *rhythm_pieces.performed_piece(performance, seed))
                       for seed in range(CROPS)]
    if options.heard:
        pieces += [("performed " + file.name, *rhythm_pieces.heard_piece(file))
                   for file in sorted(options.heard.glob("*.heard.json"))]
    return [piece for piece in pieces if len(piece[1]) > 8 and len(piece[2]["beats"]) > 6]


def list_readings(program, pieces):
    """For each piece the times of each track's beats, and a row for each reading."""
    text = []
    for _, notes, _ in pieces:
        text.append(str(len(notes)))
        text += ["{onset:.4f} {end:.4f} {pitch} {string} {strength:.4f} {probability:.4f}".format(**note)
                 for note in notes]
    found = subprocess.run([program], input="\n".join(text) + "\n", text=True, check=True,
                           stdout=subprocess.PIPE).stdout
    lines = iter(found.split("\n"))
    result = []
    for _ in pieces:
        tracks = [np.array(next(lines).split()[1:], float) for _ in range(int(next(lines)))]
        rows = np.array([next(lines).split() for _ in range(int(next(lines)))], float)
        result.append((tracks, rows))
    return result


def f_of_times(truth, found):
    """F1 of two lists of times; neighbours in a list are further apart than NEAR."""
    if len(truth) == 0 or len(found) == 0:
        return 0.0
    at = np.clip(np.searchsorted(found, truth), 1, len(found) - 1) if len(found) > 1 else 0
    far = np.abs(found[at] - truth)
    if len(found) > 1:
        far = np.minimum(far, np.abs(found[at - 1] - truth))
    return 2 * np.sum(far <= NEAR) / (len(truth) + len(found))


def worth_of(notes, truth, tracks, rows):
    """How right each reading is, 0..1."""
    last = max(note["onset"] for note in notes) + 0.1
    inside = lambda times: times[(times >= 0.9) & (times <= last)]
    beats = inside(np.array([time for time, _ in truth["beats"]]))
    bars = inside(np.array([time for time, place in truth["beats"] if place == 1]))
    of_track = [f_of_times(beats, inside(track)) for track in tracks]
    worth = []
    for row in rows:
        track, size, first, compound = (int(value) for value in row[:4])
        tempo = 60 / np.median(np.diff(tracks[track]))
        octaves = abs(np.log2(tempo / truth["bpm"]))
        metre = size == truth["beats_per_bar"] and bool(compound) == bool(truth["compound"])
        bar = f_of_times(bars, inside(tracks[track][first::size]))
        worth.append(0.35 * of_track[track] + 0.15 * (octaves < 0.057) + 0.2 * metre + 0.3 * bar)
    return np.array(worth)


class Sample:
    """A piece with the features of its readings and how right they are."""

    def __init__(self, piece, readings):
        self.kind, notes, truth = piece
        tracks, rows = readings
        self.features = rows[:, 5:]
        self.worth = worth_of(notes, truth, tracks, rows)
        self.right = self.worth >= self.worth.max() - 0.03
        self.solvable = self.worth.max() > 0.6

    def loss(self, weights):
        scores = self.features @ weights
        scores -= scores.max()
        chosen = np.exp(scores)
        chosen /= chosen.sum()
        good = chosen * self.right
        total = good.sum() + 1e-9
        return -np.log(total), self.features.T @ (chosen - good / total)

    def chosen_worth(self, weights):
        return self.worth[int(np.argmax(self.features @ weights))]


def feature_names():
    header = (PROJECT / "src/rhythm/judging/ReadingFeatures.h").read_text(encoding="utf-8")
    return re.findall(r"^  (\w+),", header, re.MULTILINE)


def fit(samples, start, scale, free):
    shrink = np.array([SHRINK if free is None or name in free else HOLD for name in feature_names()])

    def objective(scaled):
        loss, gradient = 0.0, np.zeros_like(scaled)
        for sample in samples:
            one, slope = sample.loss(scaled / scale)
            weight = PERFORMED if sample.kind.startswith("performed") else 1.0
            loss += weight * one
            gradient += weight * slope / scale
        change = scaled - start * scale
        count = len(samples)
        return loss / count + (shrink * change) @ change, gradient / count + 2 * shrink * change
    bounds = [(LEAST[name] * scale[i] if name in LEAST else None, None)
              for i, name in enumerate(feature_names())]
    best = minimize(objective, np.maximum(start, [LEAST.get(n, -1e9) for n in feature_names()]) * scale,
                    jac=True, method="L-BFGS-B", bounds=bounds, options={"maxiter": 200})
    return best.x / scale


def current_weights(samples, readings):
    rows = np.concatenate([rows for _, rows in readings])
    solution, *_ = np.linalg.lstsq(rows[:, 5:], rows[:, 4], rcond=None)
    return solution


def report(title, samples, weights):
    print(title)
    kinds = sorted({sample.kind.split()[0] for sample in samples})
    for kind in kinds:
        some = [sample for sample in samples if sample.kind.split()[0] == kind]
        chosen = np.array([sample.chosen_worth(weights) for sample in some])
        best = np.array([sample.worth.max() for sample in some])
        loss = np.mean([sample.loss(weights)[0] for sample in some if sample.solvable])
        print(f"  {kind}: {len(some)} pieces, worth {chosen.mean():.3f} of {best.mean():.3f},"
              f" right {np.mean(chosen >= best - 0.03):.3f}, loss {loss:.3f}")


def main():
    options = arguments()
    pieces = make_pieces(options)
    readings = list_readings(options.readings, pieces)
    samples = [Sample(piece, found) for piece, found in zip(pieces, readings)]
    tried = [sample for i, sample in enumerate(samples) if i % 3 and sample.solvable]
    held = [sample for i, sample in enumerate(samples) if i % 3 == 0]
    start = current_weights(samples, readings)
    scale = np.maximum(1e-3, np.mean([sample.features.std(axis=0) for sample in samples], axis=0))
    report("held out, before", held, start)
    weights = fit(tried, start, scale, options.free)
    report("tried", tried, weights)
    report("held out", held, weights)
    lines = [f"    {weight:.3g},  // {name}" for weight, name in zip(weights, feature_names())]
    print("\n".join(lines))
    if options.out:
        options.out.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
