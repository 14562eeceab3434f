# SPDX-License-Identifier: GPL-3.0-or-later
"""Has MuseScore open scores and save them again; reads what it saved."""
import contextlib
import json
import os
import shutil
import subprocess
import tempfile
import xml.etree.ElementTree as ET
from fractions import Fraction

from expected import Music

PROGRAM = shutil.which("musescore3") or shutil.which("mscore3")
STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def pitch_of(element, step, alter, octave):
    return (STEPS[element.findtext(step)] + int(element.findtext(alter, "0")) +
            12 * (int(element.findtext(octave)) + 1))


@contextlib.contextmanager
def converted(files, ending=""):
    """What MuseScore makes of scores, as files in the same order that are gone afterwards."""
    with tempfile.TemporaryDirectory() as folder:
        jobs = [{"in": str(file), "out": f"{folder}/{file.name}{ending}"} for file in files]
        with open(f"{folder}/jobs.json", "w", encoding="utf-8") as out:
            json.dump(jobs, out)
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": folder,
                       "XDG_RUNTIME_DIR": folder}
        subprocess.run([PROGRAM, "-j", f"{folder}/jobs.json"], check=True, env=environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        yield [job["out"] for job in jobs]


def saved_again(files):
    """Their scores as MuseScore writes them, in the same order."""
    with converted(files) as saved:
        return [ET.parse(file).getroot() for file in saved]


class Reader:
    """Walks the measures of a part; ties join notes."""

    def __init__(self, root):
        self.music = Music(root.findtext("work/work-title", ""), [])
        self.divisions = 1
        self.bar = 0  # start of the bar, in sixteenths
        self.start = self.now = 0
        self.sounding = {}  # (string, fret) of tied notes -> their index
        for measure in root.iterfind("part/measure"):
            self.measure(measure)
        self.music.notes = sorted(map(tuple, self.music.notes))

    def sixteenths(self, element):
        return Fraction(int(element.findtext("duration")) * 4, self.divisions)

    def measure(self, measure):
        self.now = self.bar
        for element in measure:
            if element.tag == "attributes":
                self.attributes(element)
            elif element.tag == "note":
                self.note(element)
            elif element.tag in ("backup", "forward"):
                raise AssertionError("one voice is expected")
            elif element.tag == "harmony":
                self.music.names.append((int(self.now), element.find("root/root-step").text))
        beats, beat_type = self.meter
        self.music.bars.append([beats, beat_type])
        assert self.now - self.bar == beats * 16 // beat_type, "a bar is not filled exactly"
        self.bar = self.now

    def attributes(self, element):
        self.divisions = int(element.findtext("divisions", str(self.divisions)))
        if element.find("time") is not None:
            self.meter = [int(element.findtext("time/beats")),
                          int(element.findtext("time/beat-type"))]
        tunings = element.findall("staff-details/staff-tuning")
        if tunings:
            tunings.sort(key=lambda tuning: int(tuning.get("line")))
            self.music.tuning = [pitch_of(tuning, "tuning-step", "tuning-alter", "tuning-octave")
                                 for tuning in tunings]

    def note(self, element):
        duration = self.sixteenths(element)
        if element.find("chord") is None:
            self.start = self.now
            self.now += duration
        if element.find("rest") is not None:
            return
        pitch = pitch_of(element.find("pitch"), "step", "alter", "octave")
        technical = element.find("notations/technical")
        string, fret = 6 - int(technical.findtext("string")), int(technical.findtext("fret"))
        ties = {tie.get("type") for tie in element.iterfind("tie")}
        if "stop" in ties:
            self.music.notes[self.sounding[string, fret]][1] += int(duration)
        else:
            self.music.notes.append([int(self.start), int(duration), string, fret, pitch])
            self.sounding[string, fret] = len(self.music.notes) - 1


def read(files):
    return [Reader(root).music for root in saved_again(files)]


LENGTHS = {"whole": 1, "half": 2, "quarter": 4, "eighth": 8, "16th": 16, "32nd": 32, "64th": 64,
           "128th": 128}


class Document:
    """Walks the bars of a document of MuseScore's own; what it says is as alphatab.mjs has it."""

    def __init__(self, root):
        part = root.find("Score/Part/Instrument/StringData")
        words = [text.text or "" for text in root.iterfind("Score/Staff/Measure/voice/StaffText/text")]
        self.music = {"tuning": [int(string.text) for string in part.iterfind("string")],
                      "capo": next((int(text.split()[-1]) for text in words if text.startswith("Capo.")), 0),
                      "bars": [], "starts": [], "tempos": [], "notes": [], "names": []}
        self.start, self.tempo = Fraction(0), 120
        for measure in root.iterfind("Score/Staff[@id='1']/Measure"):
            for sign in measure.iter("TimeSig"):
                self.meter = [int(sign.findtext("sigN")), int(sign.findtext("sigD"))]
            length = Fraction(measure.get("len", "{}/{}".format(*self.meter)))
            for sign in measure.iter("Tempo"):
                self.tempo = float(sign.findtext("tempo")) * 60
            self.music["bars"].append(self.meter)
            self.music["starts"].append(self.start * 16)
            self.music["tempos"].append(self.tempo)
            for voice in measure.iterfind("voice"):
                end = self.voice(voice)
                if end != self.start + length:
                    self.music["wrong"] = f"bar {len(self.music['bars'])}: {end - self.start}"
            self.start += length

    def voice(self, voice):
        at, scale = self.start, Fraction(1)
        for element in voice:
            if element.tag == "Tuplet":
                scale = Fraction(int(element.findtext("normalNotes")),
                                 int(element.findtext("actualNotes")))
            elif element.tag == "endTuplet":
                scale = Fraction(1)
            elif element.tag == "location":
                at += Fraction(element.findtext("fractions"))
            elif element.tag == "FretDiagram":
                self.music["names"].append((at * 16, name_of(element.find("Harmony"))))
            elif element.tag in ("Chord", "Rest"):
                self.strike(at, element)
                at += length_of(element) * scale
        return at

    def strike(self, at, chord):
        for note in chord.iterfind("Note"):
            if note.find("Spanner[@type='Tie']/prev") is None:
                self.music["notes"].append(
                    [at * 16, 0, 5 - int(note.findtext("string")), int(note.findtext("fret")),
                     int(note.findtext("pitch"))])


def length_of(chord):
    kind = chord.findtext("durationType")
    if kind == "measure":
        return Fraction(chord.findtext("duration"))
    return Fraction(2 ** (int(chord.findtext("dots", "0")) + 1) - 1,
                    LENGTHS[kind] * 2 ** int(chord.findtext("dots", "0")))


def name_of(harmony):
    """Roots are counted in fifths, with F at 13."""
    fifths = int(harmony.findtext("root")) - 13
    sharps, letter = divmod(fifths, 7)
    return "FCGDAEB"[letter] + ("#" * sharps or "b" * -sharps) + harmony.findtext("name", "")


def documents(files):
    """Tablatures as MuseScore keeps them, in the same order."""
    with converted(files, ".mscx") as saved:
        return [Document(ET.parse(file).getroot()).music for file in saved]
