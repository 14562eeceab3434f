# SPDX-License-Identifier: GPL-3.0-or-later
"""Sets of labelled recordings that are made of others: real recordings, pieces, other levels.

Each function fills a new folder, which is a set as labelled.py describes it.
"""
import json
import subprocess
import sys

import numpy
import soundfile

ROOMS = "tools/detection/rooms.py"
FIRST_SEED_TO_MEASURE = 1000
# Where pieces of a recording begin, as shares of it.
STARTS = (0.2, 0.5, 0.8)
# Peaks that a copy at the original level and the loudest copy have.
PEAK = 0.45


def write_clip(folder, name, sound, rate, truth):
    soundfile.write(folder / f"{name}.wav", sound, rate, subtype="PCM_16")
    full = {**truth, "clip": name, "seconds": len(sound) / rate, "samples": len(sound)}
    (folder / f"{name}.json").write_text(json.dumps(full), encoding="utf-8")
    return {"clip": name, "kind": truth.get("kind", name), "audio": f"{name}.wav"}


def write_index(folder, clips):
    (folder / "index.json").write_text(json.dumps(clips), encoding="utf-8")
    return folder


def read_truth(folder, name):
    return json.loads((folder / f"{name}.json").read_text(encoding="utf-8"))


def real_set(recordings, folder):
    """Of a folder with NAME.flac and, where its notes are known, NAME.json."""
    folder.mkdir()
    clips = []
    for file in sorted(recordings.glob("*.flac")):
        if file.with_suffix(".json").exists():
            sound, rate = soundfile.read(file)
            truth = {"chords": [], **read_truth(recordings, file.stem), "kind": "real"}
            clips.append(write_clip(folder, file.stem, sound, rate, truth))
    return write_index(folder, clips)


def in_rooms(project, recordings, folder, *options):
    subprocess.run([sys.executable, project / ROOMS, "--set", recordings, "--out", folder,
                    "--seed", str(FIRST_SEED_TO_MEASURE), *options], check=True)
    return folder


def notes_within(notes, start, end):
    """What sounds between two times, counted from the first."""
    return [{**note, "onset": max(0, note["onset"] - start),
             "offset": min(end, note["offset"]) - start}
            for note in notes if note["onset"] < end and note["offset"] > start]


def pieces_set(recordings, clips, seconds, folder):
    """Three pieces of each clip."""
    folder.mkdir()
    found = []
    for clip in clips:
        sound, rate = soundfile.read(recordings / clip["audio"])
        truth = read_truth(recordings, clip["clip"])
        for number, share in enumerate(STARTS):
            first = int(share * len(sound))
            piece = sound[first:first + int(seconds * rate)]
            notes = notes_within(truth["notes"], first / rate, first / rate + len(piece) / rate)
            found.append(write_clip(folder, f"{clip['clip']}-{number}", piece, rate,
                                    {**truth, "notes": notes, "chords": []}))
    return write_index(folder, found)


def at_level(recordings, clips, decibels, folder, notes_of=None):
    """Copies whose peak lies so far above PEAK. notes_of: the truth, by names of clips."""
    folder.mkdir()
    found = []
    for clip in clips:
        sound, rate = soundfile.read(recordings / clip["audio"])
        sound = sound * (PEAK / numpy.abs(sound).max() * 10 ** (decibels / 20))
        notes = notes_of(clip["clip"]) if notes_of else []
        found.append(write_clip(folder, clip["clip"], sound, rate,
                                {"kind": "level", "notes": notes, "chords": []}))
    return write_index(folder, found)
