# SPDX-License-Identifier: GPL-3.0-or-later
"""What a song means to a player, worked out from what the store says of it."""
import json
import unicodedata
from dataclasses import dataclass, field

OPEN_STRINGS = {"Standard": [40, 45, 50, 55, 59, 64], "Drop D": [38, 45, 50, 55, 59, 64]}
STEP_SECONDS = 16384 / 44100  # of a chord, which is a sixteenth
TICKS = 120  # of a sixteenth


@dataclass
class Music:
    """Times in sixteenths; strings from 0 for the lowest one."""
    title: str
    tuning: list
    bars: list = field(default_factory=list)  # [beats, beat type]
    notes: list = field(default_factory=list)  # (start, duration, string, fret, pitch), sorted
    names: list = field(default_factory=list)  # (start, chord name) where it changes


def visible(title):
    return "".join(c for c in title if unicodedata.category(c) != "Cc")


def active(chord):
    return [tone for tone in chord["tones"] if tone["active"]]


def tones_of(chord, tuning):
    """One on each string, the highest."""
    frets = {}
    for tone in active(chord):
        frets[tone["string"]] = max(tone["fret"], frets.get(tone["string"], 0))
    return [(string, fret, tuning[string] + fret) for string, fret in sorted(frets.items())]


def timed(chords):
    """(chord, duration): those that a longer chord before them covers take no time."""
    covered = 0
    for chord in chords:
        duration = max(chord["duration"], 1)
        if not active(chord) and covered and duration == 1:
            covered -= 1
            continue
        covered = duration - 1
        yield chord, duration


def passages(song, metric):
    """(meter, [(chord, duration)]): bars, or the whole song in one meter."""
    if metric or not song["measures"]:
        yield [int(number) for number in (metric or "4/4").split("/")], timed(song["chords"])
        return
    chords = {chord["position"]: chord for chord in song["chords"]}
    for measure in song["measures"]:
        inside = [chords[position] for position in measure["chords"]]
        yield [measure["beat"], measure["beattype"]], [(c, c["duration"]) for c in inside]


def read(file):
    content = json.loads(file.read_text())
    song = content["song"]
    music = Music(visible(song["title"]), OPEN_STRINGS[song["tuning"]])
    start, name = 0, None
    for meter, chords in passages(song, content["metric"]):
        length = meter[0] * 16 // meter[1]
        begin = start
        for chord, duration in chords:
            tones = tones_of(chord, music.tuning)
            music.notes += [(start, duration, *tone) for tone in tones]
            if tones and chord["name"] != name:
                name = chord["name"]
                music.names += [(start, name)] if name else []
            start += duration
        count = max(-(-(start - begin) // length), 1)
        music.bars += [meter] * count
        start = begin + count * length
    music.notes.sort()
    return music


def played(file):
    """(tick, ticks, pitch) of every note that one MIDI channel can play."""
    song = json.loads(file.read_text())["song"]
    tuning = OPEN_STRINGS[song["tuning"]]
    notes = {}
    for step, chord in enumerate(song["chords"]):
        for tone in active(chord):
            key = (tuning[tone["string"]] + tone["fret"], step * TICKS)
            notes[key] = max(notes.get(key, 0), (tone["duration"] or 2) * TICKS * 95 // 100)
    keys = sorted(notes)
    for (pitch, start), (other, after) in zip(keys, keys[1:]):
        if pitch == other:
            notes[pitch, start] = min(notes[pitch, start], after - start)
    return sorted((start, length, pitch) for (pitch, start), length in notes.items())


@dataclass
class Beats:
    """A song on beats: where its notes are struck, in ticks, 480 a quarter, from the first whole bar
    on. Frets count from the capo, as files have them."""
    tuning: list
    capo: int = 0
    pick_up: bool = False  # whether the first bar is one
    bars: list = field(default_factory=list)  # [beats, beat type]
    tempos: list = field(default_factory=list)  # of bars, in quarters a minute
    notes: list = field(default_factory=list)  # (start, string, fret, pitch), sorted
    names: list = field(default_factory=list)  # (start, chord name) where it changes


def beats_of(file):
    """What a random song is."""
    content = json.loads(file.read_text())
    song, capo = content["song"], content["capo"]
    tuning = [int(pitch) for pitch in song["tuning"].split()]
    chords = {chord["position"]: chord for chord in song["chords"]}
    music, start, name = Beats(tuning, capo), 0, None
    for measure in song["measures"]:
        inside = [chords[position] for position in measure["chords"]]
        meter = [measure["beat"], measure["beattype"]]
        compound = meter[1] == 8 and meter[0] % 3 == 0
        scale = 60 if compound else 40
        music.bars.append(meter)
        music.tempos.append(song["tempo"] * (1.5 if compound else 1))
        if inside[0]["tick"] < 0:
            start = inside[0]["tick"] * scale
            music.pick_up = True
        for chord in inside:
            tones = tones_of(chord, tuning)
            music.notes += [(start, string, fret - capo, pitch) for string, fret, pitch in tones]
            if tones and chord["name"] != name:
                name = chord["name"]
                music.names += [(start, name)] if name else []
            start += chord["ticks"] * scale
    music.notes.sort()
    return music


def is_on_beats(file):
    return "tempo" in json.loads(file.with_suffix(".json").read_text())["song"]


def ticks_of_bar(file):
    first = json.loads(file.read_text())["song"]["measures"][0]
    return 1920 * first["beat"] // first["beattype"]


def on_beats(file):
    """(tick, ticks, pitch) of every note of a song on beats, from the first bar line, sorted. A
    quarter has 480."""
    song = json.loads(file.read_text())["song"]
    tuning = OPEN_STRINGS[song["tuning"]]
    scale = 60 if song["measures"][0]["beattype"] == 8 else 40
    notes = [(chord["tick"] * scale, tone["ticks"] * scale, tuning[tone["string"]] + tone["fret"])
             for chord in song["chords"] for tone in active(chord)]
    return sorted(notes)
