# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws what the tool has heard, given as JSON: of a song each shape and how many chords have it one
after the other, of a transcription the shape of the notes that start together and when."""
import json
import sys


def drawn(tones):
    shape = ["x"] * 6
    for tone in tones:
        if tone["string"] is not None:
            shape[tone["string"]] = "0123456789abcdefghijklmno"[tone["fret"]]
    return "".join(shape)


def grouped(notes):
    """By their beginning, within a twentieth of a second."""
    groups = []
    for note in sorted(notes, key=lambda note: note["onset"]):
        if not groups or note["onset"] - groups[-1][0]["onset"] > 0.05:
            groups.append([])
        groups[-1].append(note)
    return groups


heard = json.load(sys.stdin)
if "notes" in heard:
    for notes in grouped(heard["notes"]):
        for note in notes:
            assert note["onset"] < note["offset"] and note["strength"] > 0, note
            # What is sure by itself, or what a stroke asks for, is taken for less than one half.
            assert 0.15 <= note["probability"] <= 1, note
        print(f"{notes[0]['onset']:.1f}", drawn(notes))
else:
    runs = []
    for chord in heard["chords"]:
        shape = drawn(chord["tones"])
        if not runs or runs[-1][0] != shape:
            runs.append([shape, 0])
        runs[-1][1] += 1
    print("  ".join(f"{shape} {count}" for shape, count in runs))
