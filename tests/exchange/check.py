# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares exported songs with what an independent reader understands of them.

Usage: check.py schema|alphatab|tuxguitar|musescore|mido|beats FOLDER
Ends with 77, saying so, when the reader is not on this machine.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ET

import expected
import musescore
import readers
from readers import leave_out

PROJECT = pathlib.Path(__file__).resolve().parents[2]
MIDI_READER = """
import json, mido, sys
for name in sys.argv[1:]:
    file = mido.MidiFile(name)
    sounding, notes, rest = {}, [], []
    for track in file.tracks:
        time = 0
        for message in track:
            time += message.time
            if message.type == "note_on" and message.velocity:
                assert message.note not in sounding, "one pitch sounds twice"
                sounding[message.note] = time
            elif message.type in ("note_on", "note_off"):
                start = sounding.pop(message.note)
                notes.append([start, time - start, message.note])
            else:
                rest.append({**message.dict(), "time": time})
    assert not sounding
    print(json.dumps([file.type, file.ticks_per_beat, sorted(notes), rest]))
"""


def compare(file, what, got, wanted):
    if got == wanted:
        return 0
    print(f"{file.name}: {what} differ")
    if isinstance(wanted, list):
        different = [pair for pair in zip(got, wanted) if pair[0] != pair[1]]
        print(f"  {len(got)} for {len(wanted)}; first: {different[:3]}")
    else:
        print(f"  {got!r} for {wanted!r}")
    return 1


def compare_music(file, got, names, fingered=True):
    """names: of chords, as this reader writes them. fingered: whether it reads strings and frets."""
    wanted = expected.read(file.with_suffix(".json"))
    if not fingered:
        for music in (got, wanted):
            music.notes = sorted((*note[:2], note[4]) for note in music.notes)
    wanted_names = [(start, names(name)) for start, name in wanted.names]
    return sum(compare(file, *pair) for pair in (
        ("titles", got.title, wanted.title), ("tunings", got.tuning, wanted.tuning),
        ("bars", got.bars, wanted.bars), ("notes", got.notes, wanted.notes),
        ("chord names", got.names, wanted_names)))


def heard(files):
    """(onset, end, string, fret, pitch) of the notes that were transcribed, times in seconds."""
    notes = json.loads((files[0].parent / "take/take.json").read_text())["notes"]
    return [(n["onset"], n["offset"], n["string"], n["fret"], n["midi"]) for n in notes]


def check_schema(files):
    """Against the official definition: a folder that holds musicxml.xsd and its catalog."""
    given = os.environ.get("KORVEL_MUSICXML_SCHEMA")
    beside = sorted(PROJECT.parent.glob("*/musicxml/musicxml.xsd"))
    schema = pathlib.Path(given) / "musicxml.xsd" if given else beside[0] if beside else None
    if not shutil.which("xmllint"):
        leave_out("xmllint is not installed")
    if not schema or not schema.is_file():
        leave_out("there is no definition of MusicXML; KORVEL_MUSICXML_SCHEMA names its folder")
    environment = {**os.environ, "XML_CATALOG_FILES": str(schema.parent / "catalog.xml")}
    result = subprocess.run(["xmllint", "--nonet", "--noout", "--schema", schema, *files,
                             files[0].parent / "take/take.musicxml"],
                            env=environment, capture_output=True, text=True, check=False)
    if result.returncode:
        print(result.stderr[:3000])
    return result.returncode


def compare_tablature(file, tablatures, tempo, nearness):
    """What a program reads of a file of Guitar Pro, which has the names of chords as they are."""
    got = tablatures[file]
    music = expected.Music(got["title"], got["tuning"], got["bars"],
                           sorted(map(tuple, got["notes"])), list(map(tuple, got["names"])))
    faults = compare_music(file, music, lambda name: name)
    faults += "wrong" in got and compare(file, "bars", got["wrong"], None)
    return faults + (abs(got["tempo"] - tempo) > nearness and
                     compare(file, "tempi", got["tempo"], tempo))


def tablatures_of(files):
    return [file.with_suffix(ending) for file in files for ending in (".gp5", ".gp")]


def tempo_of(file):
    rate = json.loads(file.with_suffix(".json").read_text())["song"]["tempoRate"]
    return 15 / expected.STEP_SECONDS * rate


def check_alphatab(files):
    take = files[0].parent / "take/take.musicxml"
    *songs, transcribed = readers.alphatab([*files, take])
    again = tablatures_of(files)
    tablatures = dict(zip(again, readers.alphatab(again)))
    faults = compare(take, "notes", sorted(note[2:] for note in transcribed["notes"]),
                     sorted([*note[2:]] for note in heard(files)))
    for file, got in zip(files, songs):
        title = got["title"].replace("\xa0", " ")  # so that it is not broken into lines
        music = expected.Music(title, got["tuning"], got["bars"],
                               sorted(map(tuple, got["notes"])),
                               [(start, name.replace("\u266d", "b").replace("\u266f", "#"))
                                for start, name in got["names"]])
        spoilt = {"7sus4": "7sus47"}  # it prints what it is told to hide
        faults += compare_music(file, music, lambda name: next(
            (name.replace(*pair) for pair in spoilt.items() if pair[0] in name), name))
        faults += "wrong" in got and compare(file, "bars", got["wrong"], None)
        tempo = tempo_of(file)
        faults += abs(got["tempo"] - tempo) > 0.01 and compare(file, "tempi", got["tempo"], tempo)
        for ending, nearness in (".gp5", 0.5), (".gp", 0.01):
            faults += compare_tablature(file.with_suffix(ending), tablatures, tempo, nearness)
    return faults


def check_tuxguitar(files):
    again = tablatures_of(files)
    tablatures = dict(zip(again, readers.tuxguitar(again)))
    # It knows whole tempi only.
    return sum(compare_tablature(file, tablatures, tempo_of(file), 1) for file in again)


def check_musescore(files):
    if not musescore.PROGRAM:
        leave_out("MuseScore is not installed")
    # Version 3.2 fingers all notes anew, those of its own documents too.
    return sum(compare_music(file, music, lambda name: name[0], fingered=False)
               for file, music in zip(files, musescore.read(files)))


def check_heard(file, content, notes):
    """A MIDI file of notes without a song: the times that were heard, to a tenth of a millisecond."""
    _, division, got, rest = json.loads(content)
    tempi = [(each["time"], each["tempo"] / 1e6 / division) for each in rest
             if each["type"] == "set_tempo"]

    def seconds(tick):
        ends = [start for start, _ in tempi[1:]] + [tick]
        return sum((min(end, tick) - start) * tempo
                   for (start, tempo), end in zip(tempi, ends) if start < tick)

    got = sorted((pitch, seconds(start), seconds(start + ticks)) for start, ticks, pitch in got)
    wanted = sorted((pitch, onset, end) for onset, end, _, _, pitch in notes)
    return compare(file, "counts", len(got), len(wanted)) + sum(
        compare(file, "notes", one, two) for one, two in zip(got, wanted)
        if max(abs(a - b) for a, b in zip(one, two)) > 1e-4)


def midi_of(files):
    """[type, ticks of a quarter, [start, ticks, pitch], other messages] of MIDI files, as JSON."""
    python = next((python for python in (sys.executable, "/usr/bin/python3") if not subprocess.run(
        [python, "-c", "import mido"], capture_output=True, check=False).returncode), None)
    if not python:
        leave_out("mido is not installed")
    out = subprocess.run([python, "-c", MIDI_READER, *files], check=True, capture_output=True)
    return out.stdout.splitlines()


def check_mido(files):
    files = [file.with_suffix(".mid") for file in files]
    take = files[0].parent / "take/take.mid"
    *lines, transcribed = midi_of([*files, take])
    faults = check_heard(take, transcribed, heard(files))
    for file, line in zip(files, lines):
        kind, division, notes, rest = json.loads(line)
        wanted = expected.played(file.with_suffix(".json"))
        faults += compare(file, "notes", [tuple(note) for note in notes], wanted)
        faults += compare(file, "formats", (kind, division), (1, 4 * expected.TICKS))
        said = {message["type"]: message for message in rest}
        faults += compare(file, "programs", said["program_change"]["program"], 25)
        faults += compare(file, "tempi", said["set_tempo"]["tempo"],
                          round(4e6 * expected.STEP_SECONDS))
        music = expected.read(file.with_suffix(".json"))
        meter = [said["time_signature"]["numerator"], said["time_signature"]["denominator"]]
        faults += compare(file, "meters", meter, music.bars[0])
        title = rest[0]["name"].encode("latin-1").decode()  # the reader takes bytes for letters
        faults += compare(file, "titles", title, music.title)
    return faults


def ticks_of_pick_up(file):
    measure = ET.parse(file).getroot().find("part/measure[@implicit]")
    notes = [note for note in measure.iterfind("note") if note.find("chord") is None]
    divisions = int(measure.findtext("attributes/divisions"))
    return sum(int(note.findtext("duration")) for note in notes) * 480 // divisions


def check_beats(files):
    """Songs on beats: what MuseScore plays of their scores, and their MIDI files, to a tick."""
    if not musescore.PROGRAM:
        leave_out("MuseScore is not installed")
    faults = 0
    tablatures = [file.with_suffix(".gp5") for file in files]
    with musescore.converted([*files, *tablatures], ".mid") as played:
        lines = midi_of([*played, *(file.with_suffix(".mid") for file in files)])
    for file, score, tablature, midi in zip(files, lines, lines[len(files):],
                                            lines[2 * len(files):]):
        notes = expected.on_beats(file.with_suffix(".json"))
        first_bar = expected.ticks_of_bar(file.with_suffix(".json"))
        got = sorted((start - first_bar, pitch) for start, _, pitch in json.loads(tablature)[2])
        faults += compare(file.with_suffix(".gp5"), "onsets", got,
                          sorted((start, pitch) for start, _, pitch in notes))
        first_bar = ticks_of_pick_up(file)
        got = sorted((start - first_bar, pitch) for start, _, pitch in json.loads(score)[2])
        faults += compare(file, "onsets", got, sorted((start, pitch) for start, _, pitch in notes))
        got = [(start - first_bar, *rest) for start, *rest in json.loads(midi)[2]]
        faults += compare(file, "MIDI notes", got, notes)
    return faults


def main(reader, folder):
    files = sorted(pathlib.Path(folder).glob("*.musicxml"))
    assert len(files) > 12, "too few songs were exported"
    if reader != "schema":
        files = [file for file in files if expected.is_on_beats(file) == (reader == "beats")]
    faults = globals()[f"check_{reader}"](files)
    print(f"{len(files)} files, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
