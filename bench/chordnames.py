# SPDX-License-Identifier: GPL-3.0-or-later
"""How many strummed chords a song names as they are."""
from collections import Counter

BLOCK = 16384 / 44100  # seconds
TYPES = {"maj": "", "min": "m"}  # the song's names for them; others are the same in a truth file
STRUM = 0.15  # seconds within which a strum reaches all of its strings
LEAST_NOTES = 3


def is_strummed(chord, notes):
    """Whether its notes start together; of an arpeggio they come one by one."""
    onsets = sorted(note["onset"] for note in notes
                    if chord["start"] - 0.01 <= note["onset"] < chord["end"])
    return len(onsets) >= LEAST_NOTES and onsets[LEAST_NOTES - 1] - onsets[0] <= STRUM


def name_between(song, start, end):
    """Root and type that most blocks between two times have; None when most have no name."""
    names = Counter()
    for chord in song["chords"]:
        if start <= chord["timestamp"] / 44100 + BLOCK / 2 < end:
            named = chord["baseTone"] is not None
            names[(chord["baseTone"], chord["harmony"]) if named else None] += 1
    return names.most_common(1)[0][0] if names else None


def count_names(truth, song):
    """Counts of strummed chords: "all", right "root", and right "type" and root."""
    counts = Counter()
    for chord in truth["chords"]:
        if not is_strummed(chord, truth["notes"]):
            continue
        found = name_between(song, chord["start"], chord["end"])
        right = found is not None and found[0] == chord["root"]
        counts["all"] += 1
        counts["root"] += right
        counts["type"] += right and found[1] == TYPES.get(chord["quality"], chord["quality"])
    return counts


def share(counts, key):
    return counts[key] / counts["all"] if counts["all"] else None
