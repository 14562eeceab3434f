# SPDX-License-Identifier: GPL-3.0-or-later
"""What candidates sound with, as Company.cpp computes it, for any probabilities."""
import numpy as np

MEMORY = .15  # seconds
SMALL = .05
TOGETHER = 4  # frames


def company(pitch, onset, end, peak, probability, hop):
    """The features by their names, a value for each candidate. Onsets and ends are frames."""
    if not len(pitch):
        return {}
    common = np.minimum(end[:, None], end) - np.maximum(onset[:, None], onset)
    np.fill_diagonal(common, 0)
    common = np.maximum(common, 0)
    counted = common / (end - onset)[:, None] * probability
    distance = pitch - pitch[:, None]
    strength = np.where(common > 0, probability * peak, 0)
    near = (np.abs(onset[:, None] - onset) <= TOGETHER) & (common > 0)

    def highest(values, *distances):
        return np.where(np.isin(distance, distances), values, 0).max(axis=1)

    def against_peak(values):
        return np.log((values + SMALL) / peak)

    limited = np.clip(probability, 1e-4, 1 - 1e-4)
    return dict(
        Odds=np.log(limited / (1 - limited)),
        LikelyOctaveBelow=highest(counted, -12),
        LikelyOctaveAbove=highest(counted, 12),
        LikelyFarBelow=highest(counted, -19, -24, -28, -31),
        LikelyFarAbove=highest(counted, 19, 24, 28),
        LikelyPolyphony=counted.sum(axis=1),
        LoudestCompany=against_peak((counted * peak).max(axis=1)),
        LikelyChord=(near * probability).sum(axis=1),
        Texture=np.full(len(pitch), texture(onset, end, probability)),
        LikelyBefore=before(pitch, onset, end, probability, hop),
        LikelyBeside=highest(counted, -1, 1),
        StrengthAbove=against_peak(highest(strength, 12)),
        StrengthBelow=against_peak(highest(strength, -12)),
        LikelyLouder=np.where(peak > peak[:, None], counted, 0).sum(axis=1))


def texture(onset, end, probability):
    """The mean number of notes that sound while any does."""
    changes = np.zeros(int(end.max()) + 1)
    np.add.at(changes, onset.astype(int), probability)
    np.add.at(changes, end.astype(int), -probability)
    sounding = np.cumsum(changes)
    return (probability * (end - onset)).sum() / max(1, np.minimum(sounding, 1).sum())


def before(pitch, onset, end, probability, hop):
    """Of the candidate of the same pitch before, less the longer ago it ended."""
    found = np.zeros(len(pitch))
    order = np.lexsort((onset, pitch))
    for i, j in zip(order[1:], order):
        if pitch[i] == pitch[j]:
            found[i] = probability[j] * np.exp(-(onset[i] - end[j]) * hop / MEMORY)
    return found
