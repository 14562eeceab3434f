#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes which notes the voices of generated bands have, beside the recordings (`voicenotes.py`).

Usage: bench/voicetruth.py --generator FILE --set DIR --base SEED [--songs FILE]
  --generator  the Python file that made the set: piece(song, seed) answers its parts as MIDI events
               (tick, status, number, velocity), of which channel 1 is the bass and channel 7 the
               tune, what is true of it and its tempo; D is its songs, T how many ticks a beat has
  --set        the recordings, NN_KIND.wav each with its truth NN_KIND.json
  --base       the seed of the first; each next one is 17 higher
  --songs      a Python list of other songs than the generator's

A recording that the generator makes otherwise today is passed over.
"""
import argparse
import ast
import json
import pathlib
import sys

sys.dont_write_bytecode = True
from labelled import module_of

CHANNELS = {"bass": 0, "melody": 6}
NOTE_ON = 0x90
SEEDS_APART = 17


def notes_of(events, channel, seconds, cents):
    """A note's end is the event after its beginning."""
    return [[event[0] * seconds, events[i + 1][0] * seconds, event[2] + cents / 100]
            for i, event in enumerate(events) if event[1] == NOTE_ON | channel]


def voices_of(generator, song, seed, truth):
    """None where the set has another recording."""
    parts, made, tempo = generator.piece(song, seed)
    chords = [chord[2] for chord in truth["chords"]]
    if made["key"] != truth["key"] or [chord[2] for chord in made["chords"]] != chords:
        return None
    cents = truth["fx"].get("cents", 0)
    seconds = 60 / tempo / generator.T / 2 ** (cents / 1200)
    return {voice: notes_of(parts["main"], channel, seconds, cents)
            for voice, channel in CHANNELS.items()}


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--generator", type=pathlib.Path, required=True)
    parser.add_argument("--set", type=pathlib.Path, required=True)
    parser.add_argument("--base", type=int, required=True)
    parser.add_argument("--songs", type=pathlib.Path)
    options = parser.parse_args()
    generator = module_of(options.generator)
    songs = (ast.literal_eval(options.songs.read_text(encoding="utf-8")) if options.songs
             else generator.D["dev"])
    for i, song in enumerate(songs):
        for file in sorted(options.set.glob(f"{i:02d}_*.json")):
            truth = json.loads(file.read_text(encoding="utf-8"))
            voices = voices_of(generator, song, options.base + SEEDS_APART * i, truth)
            if voices:
                file.with_suffix(".voices").write_text(json.dumps(voices), encoding="utf-8")


if __name__ == "__main__":
    main()
