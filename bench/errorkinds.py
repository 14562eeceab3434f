# SPDX-License-Identifier: GPL-3.0-or-later
"""What kinds of errors a transcription has: notes that never were, and notes that were missed."""
from collections import Counter

SAME_ONSET = 0.05  # seconds
NEARLY = 0.2
RINGS_ON = 0.5
OVERTONES = (12, 19, 24, 28, 31)


def matched(truth, found):
    """Numbers of the notes of either that are the same, each in one pair, the nearest first."""
    pairs = sorted((abs(a["onset"] - b["onset"]), i, j) for i, a in enumerate(truth)
                   for j, b in enumerate(found)
                   if a["midi"] == b["midi"] and abs(a["onset"] - b["onset"]) <= SAME_ONSET)
    heard, right = set(), set()
    for _, i, j in pairs:
        if i not in heard and j not in right:
            heard.add(i)
            right.add(j)
    return heard, right


def pitches_at(notes, time):
    return {note["midi"] for note in notes if note["onset"] - SAME_ONSET <= time < note["offset"]}


def kind_of_false(note, truth):
    onset, pitch = note["onset"], note["midi"]
    same = [each for each in truth if each["midi"] == pitch]
    around = pitches_at(truth, onset)
    if any(each["onset"] + NEARLY < onset < each["offset"] for each in same):
        return "struck again, never was"
    if any(abs(each["onset"] - onset) <= NEARLY for each in same):
        return "onset off by more than 50 ms"
    if any(each["offset"] <= onset < each["offset"] + RINGS_ON for each in same):
        return "rings on"
    if any(pitch + distance in around for distance in OVERTONES):
        return "octave or more below another"
    if any(pitch - distance in around for distance in OVERTONES):
        return "overtone of another"
    return "beside another" if {pitch - 1, pitch + 1} & around else "other"


def kind_of_missed(note, truth, found):
    onset, pitch = note["onset"], note["midi"]
    same = [each for each in found if each["midi"] == pitch]
    others = pitches_at([each for each in truth if each is not note], onset)
    if any(abs(each["onset"] - onset) <= NEARLY for each in same):
        return "onset off by more than 50 ms"
    if any(each["onset"] < onset < each["offset"] for each in same):
        return "struck again"
    if any(pitch - distance in others for distance in OVERTONES):
        return "overtone of another"
    return "shorter than 0.1 s" if note["offset"] - onset < 0.1 else "other"


def error_kinds(truth, found):
    """Counters of the kinds of false and of missed notes."""
    heard, right = matched(truth, found)
    false = Counter(kind_of_false(note, truth) for j, note in enumerate(found) if j not in right)
    missed = Counter(kind_of_missed(note, truth, found)
                     for i, note in enumerate(truth) if i not in heard)
    return false, missed
