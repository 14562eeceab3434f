# SPDX-License-Identifier: GPL-3.0-or-later
"""Has another program open random songs and compares what it understands of them: where notes are
struck, their strings and frets, bars, tempi and names of chords.

Usage: random_songs.py alphatab|tuxguitar|musescore FOLDER
Ends with 77, saying so, when the program is not on this machine.
"""
import pathlib
import sys

import expected
import musescore
import readers


def from_musescore(files):
    if not musescore.PROGRAM:
        readers.leave_out("MuseScore is not installed")
    return musescore.documents(files)


# What a program opens: MuseScore 3 knows no files of Guitar Pro 7, and fingers scores anew.
PROGRAMS = {"alphatab": (readers.alphatab, (".gp5", ".gp", ".musicxml")),
            "tuxguitar": (readers.tuxguitar, (".gp5", ".gp")),
            "musescore": (from_musescore, (".gp5",))}
# MuseScore writes a capo above the staff, and does not sound so. TuxGuitar knows none of Guitar Pro 7.
WITHOUT_SOUND_OF_CAPO = [("musescore", ".gp5"), ("tuxguitar", ".gp")]


def ticks(sixteenths):
    return round(sixteenths * 120)


def sounding(names, capo=0):
    """With roots as pitch classes: programs spell them by keys of their own. capo: that the names are
    of shapes behind."""
    for start, name in names:
        root = name[:2] if name[1:2] in ("b", "#") else name[:1]
        signs = root.count("#") - root.count("b")
        yield start, (musescore.STEPS[root[0]] + signs + capo) % 12, name[len(root):]


def allow_for_musescore(got, wanted):
    """It takes 3/4 after 6/8 for no change, and misses where a piece goes back to its first tempo."""
    for bar, (one, two) in enumerate(zip(got["bars"], wanted.bars)):
        if one[0] * two[1] == two[0] * one[1]:
            got["bars"][bar] = two
        if bar and wanted.tempos[bar] == wanted.tempos[0]:
            got["tempos"][bar] = wanted.tempos[0]


def differences(program, ending, got, wanted):
    """What differs, with the first difference of each."""
    if program == "musescore":
        allow_for_musescore(got, wanted)
    capo = wanted.capo
    if (program, ending) in WITHOUT_SOUND_OF_CAPO:
        for note in got["notes"]:
            note[-1] += capo
        if program == "tuxguitar":
            got["capo"] = capo
    first = got["starts"][1 if wanted.pick_up else 0]
    notes = sorted((ticks(start - first), *place) for start, _, *place in got["notes"])
    names = sorted((ticks(start - first), name) for start, name in got["names"])
    pairs = {"tunings": (got["tuning"], wanted.tuning), "capos": (got["capo"], capo),
             "bars": (got["bars"], wanted.bars), "notes": (notes, wanted.notes),
             "filled bars": (got.get("wrong"), None),
             "chord names": (list(sounding(names, 0 if ending == ".musicxml" else capo)),
                             list(sounding(wanted.names)))}
    for what, (one, two) in pairs.items():
        if one == two:
            continue
        if isinstance(two, list):
            one, two = next(((a, b) for a, b in zip(one, two) if a != b), (len(one), len(two)))
        yield f"{what}: {one} for {two}"
    whole = ending == ".gp5" or program == "tuxguitar"
    nearness = 0.51 if whole else 0.01
    for bar, (tempo, right) in enumerate(zip(got["tempos"], wanted.tempos)):
        if abs(tempo - right) > nearness:
            yield f"tempo of bar {bar}: {tempo} for {right}"
            break


def main(program, folder):
    songs = sorted(pathlib.Path(folder).glob("*.json"))
    assert len(songs) >= 300, "too few songs were exported"
    read, endings = PROGRAMS[program]
    understood = iter(read([song.with_suffix(ending) for ending in endings for song in songs]))
    faults = 0
    for ending in endings:
        right = 0
        for song in songs:
            found = list(differences(program, ending, next(understood), expected.beats_of(song)))
            right += not found
            for each in found[:5]:
                print(f"{song.stem}{ending}: {each}")
        print(f"{program} reads {right} of {len(songs)} {ending} right")
        faults += len(songs) - right
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
