# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes pieces whose reading is known, as notes that a detection may have heard of them.

A piece is (notes, truth): notes are dictionaries of onset, end, pitch, strength and probability;
the truth has beats [[seconds, place in the bar from 1]], beats_per_bar, compound, bpm.
Two folders of a rhythm benchmark make them: `compose.py` plays pieces in musical time, `train_set.py`
makes some at random. The others are made here, in more ways of playing, at more tempos.
"""
import json

import numpy as np

FRAME = 0.0116  # the detection's grid of time, in seconds
KEYS = [("C:major", ["C", "Am", "F", "G", "Dm", "Em"]), ("G:major", ["G", "Em", "C", "D", "Am"]),
        ("D:major", ["D", "Bm", "G", "A"]), ("A:minor", ["Am", "Dm", "E7", "F", "C"]),
        ("E:minor", ["Em", "C", "G", "D", "B7"]), ("A:major", ["A", "D", "E", "F#m"]),
        ("F:major", ["F", "Bb", "C7", "Dm"]), ("E:major", ["E", "A", "B7", "C#m"])]

# One way of playing each: tempo from .. to, one letter a step of a bar of four or three beats.
STRUMMED = {
    "eighths": (76, 150, {4: ["D.dudud.", "D.du.udu", "D.d.dudu", "DudududU", "D.dud.du"],
                          3: ["D.dudu", "D.d.du", "D.dud."]}),
    "downstrokes": (132, 205, {4: ["DdddDddd", "DddDddDd", "Dddddddd"], 3: ["Dddddd", "D.dddd"]}),
    "quarters": (84, 190, {4: ["D.d.D.d.", "D.d.d.d.", "b.t.b.t.", "b.t.5.t.", "r.D.r.D."],
                           3: ["D.d.d.", "b.t.t.", "5.t.t."]}),
    "sixteenths": (58, 104, {4: ["D.d.d.u.D.dud.u.", "D..u.udr.u.uD.d.", "D.du.uduD.du.udu",
                                 "D...d.u.D.d.d.u.", "Dr.ud..uDr.u.du."],
                             3: ["D.d.d.dud.d.", "D.dud.dud.du"]}),
    "held": (60, 160, {4: ["D.......", "D...D...", "D.....d.", "D..D..D."], 3: ["D.....", "D...d."]}),
    "syncopated": (88, 150, {4: ["D..d..d.", "D..u.u.u", "d.u.u.u.", "D..u.ud."],
                             3: ["D..u.u", "D.du.u"]}),
}
SHUFFLED = ["D.uD.ud.ud.u", "D.ud.uD.ud.u", "b.ut.ub.ut.u", "D..d.uD..d.u"]
TRIPLETS = ["DduDduDduDdu", "D.uD.uDduD.u", "D..DduD..Ddu", "Ddud.uDdud.u", "b.tb.tb.tbtt"]
SIXES = ["D.d.d.D.d.d.", "D.d.duD.d.du", "D...d.D.d.d.", "D.....D.d.d.", "D.dudud.dudu"]
PICKED = {4: ["b.3.2.1.", "b32123b2", "b.231.23", "p.52b.51", "p.3.2.3.", "b3212321", "p.2.p.2."],
          3: ["b.2321", "b.P.P.", "p.3.2.", "b32123"]}
PICKED_SIXTEENTHS = {4: ["b3213b235321b321", "b.32b.32b.32b.32", "p.23b.23p.23b.23"],
                     3: ["b321b321b321"]}
PICKED_TRIPLETS = ["b32132b32132", "b32b32b32b32", "p.2132p.2132", "b12312512312"]
TRIPLET_CELLS = [([(0, "n"), (4, "n"), (8, "n")], 5), ([(0, "n"), (8, "n")], 2), ([(0, "n")], 1.5),
                 ([(4, "n"), (8, "n")], .6), ([(0, "n"), (4, "n")], .4), ([(0, "r")], .4), ([], .4)]
PICKED_SIX = ["b32532", "b32123", "p32b23"]
JIGS = ["b.ttb.tt", "b.t5.t", "D.d.d.D.d.d.", "D.dD.d", "D...d.D...d.", "bttbtt", "D.....D.....", "D.d.duD.d.du"]
JIG_CELLS = [([(0, "n"), (4, "n"), (8, "n")], 7), ([(0, "n"), (8, "n")], 3), ([(0, "n")], 1.2),
             ([(0, "n"), (2, "n"), (4, "n"), (8, "n")], .3), ([(0, "n"), (4, "n")], .4)]


def pick(r, choices, weights=None):
    shares = None if weights is None else np.array(weights, float) / np.sum(weights)
    return choices[int(r.choice(len(choices), p=shares))]


def between(r, low, high):
    """A tempo: even on a logarithmic scale."""
    return float(np.exp(r.uniform(np.log(low), np.log(high))))


def chords(r, names):
    found = [names[0]] + [pick(r, names) for _ in range(pick(r, [3, 3, 1, 7]))]
    return [name for name in found for _ in (0, 1)] if r.rand() < .2 else found


class Maker:
    def __init__(self, compose, r):
        self.compose, self.r = compose, r
        self.key, names = KEYS[r.randint(len(KEYS))]
        self.chords = chords(r, names)
        self.metre = pick(r, ["4/4", "3/4", "6/8", "2/4"], [.68, .16, .12, .04])

    def start(self, tempo, swing=None):
        loose = self.r.uniform(.006, .034)
        self.piece = self.compose.Piece(self.r, self.metre, tempo, self.key, swing=swing,
                                        jitter=float(loose), strum_ms=self.slowness())
        self.bars = max(5, int(self.r.uniform(18, 32) / (60 / tempo * self.piece.bpb)))

    def slowness(self):
        """Milliseconds from string to string: quick, now and then stroked slowly."""
        return float(self.r.uniform(4, 16) if self.r.rand() < .92 else self.r.uniform(20, 50))

    def strum(self):
        if self.metre == "6/8":
            self.start(between(self.r, 44, 100))
            patterns = [pick(self.r, SIXES) for _ in range(2)]
        elif self.metre == "4/4" and self.r.rand() < .16:
            self.start(between(self.r, 80, 170), float(self.r.uniform(.58, .68)))
            patterns = [pick(self.r, SHUFFLED) for _ in range(2)]
        elif self.metre == "4/4" and self.r.rand() < .1:
            self.start(between(self.r, 56, 116))
            patterns = [pick(self.r, TRIPLETS) for _ in range(2)]
        else:
            low, high, ways = STRUMMED[pick(self.r, list(STRUMMED), [4, 1.2, 1.6, 2, 1, 1.4])]
            self.start(between(self.r, low, high))
            bar = 4 if self.metre == "2/4" else self.piece.bpb
            patterns = [pick(self.r, ways[bar]) for _ in range(pick(self.r, [1, 2]))]
            if self.metre == "2/4":
                patterns = [pattern[:len(pattern) // 2] for pattern in patterns]
        self.piece.strummed(0, self.bars, self.chords, patterns, drop=.05)

    def pick_strings(self):
        if self.metre == "6/8":
            self.start(between(self.r, 40, 84))
            patterns = PICKED_SIX
        elif self.metre == "4/4" and self.r.rand() < .15:
            self.start(between(self.r, 50, 100))
            patterns = PICKED_TRIPLETS
        elif self.r.rand() < .25:
            self.start(between(self.r, 52, 96))
            patterns = PICKED_SIXTEENTHS[4 if self.metre == "2/4" else self.piece.bpb]
        else:
            self.start(between(self.r, 70, 160))
            patterns = PICKED[4 if self.metre == "2/4" else self.piece.bpb]
        patterns = [pick(self.r, patterns) for _ in range(pick(self.r, [1, 1, 2]))]
        if self.metre == "2/4":
            patterns = [pattern[:len(pattern) // 2] for pattern in patterns]
        self.piece.picked(0, self.bars, self.chords, patterns)

    def sing(self):
        c = self.compose
        if self.metre == "6/8":
            self.start(between(self.r, 44, 100))
            cells = c.C_SIX
        elif self.metre == "4/4" and self.r.rand() < .16:
            self.start(between(self.r, 84, 200), float(self.r.uniform(.56, .68)))
            cells = c.C_SWING
        else:
            low, high, cells = pick(self.r, [(72, 170, c.C_SIMPLE), (84, 150, c.C_SYNC),
                                             (66, 118, c.C_RUN), (66, 120, c.C_TRIP),
                                             (100, 190, self.slow_cells())], [4, 2, 2.2, 1, 1.5])
            self.start(between(self.r, low, high))
        self.piece.melody(0, self.bars, self.chords, cells, bass=bool(self.r.rand() < .4),
                          lo=int(self.r.randint(45, 60)), hi=int(self.r.randint(72, 82)))

    @staticmethod
    def slow_cells():
        note = (0, "n")
        return [([note], 6), ([], 3.5), ([note, (6, "n")], 1.2), ([(0, "r")], 1)]

    def click(self):
        """One note again and again."""
        self.metre = "4/4"
        self.start(between(self.r, 56, 200))
        step = pick(self.r, [12, 12, 6])
        for tick in range(0, self.bars * 48, step):
            accent = 1 if tick % 48 == 0 else .9 if tick % 12 == 0 else .8
            self.piece.note(tick, step, 60, vel=accent)

    def jig(self):
        """Six eighths in two quick beats, mostly a tune, with or without a bass or chords."""
        self.metre = "6/8"
        self.start(between(self.r, 66, 132))
        way = pick(self.r, ["tune", "bass", "strum", "picked"], [.4, .3, .2, .1])
        if way == "strum":
            self.piece.strummed(0, self.bars, self.chords, [pick(self.r, JIGS) for _ in range(2)],
                                drop=.05)
        elif way == "picked":
            self.piece.picked(0, self.bars, self.chords, [pick(self.r, PICKED_SIX)])
        else:
            self.piece.melody(0, self.bars, self.chords, JIG_CELLS, bass=way == "bass",
                              lo=int(self.r.randint(52, 62)), hi=int(self.r.randint(74, 84)))
        if self.r.rand() < .6:
            ticks = pick(self.r, [[-4], [-8, -4], [-12, -8, -4]], [.6, .25, .15])
            self.piece.pickup(ticks, [60, 62, 64])

    def triplets(self):
        """Beats divided by three in bars of four: even triplets, or swung."""
        c = self.compose
        self.metre = "4/4"
        if self.r.rand() < .4:
            self.start(between(self.r, 80, 200), float(self.r.uniform(.56, .68)))
            if self.r.rand() < .5:
                patterns = [pick(self.r, SHUFFLED) for _ in range(2)]
                return self.piece.strummed(0, self.bars, self.chords, patterns, drop=.05)
            cells = c.C_SWING
        else:
            self.start(between(self.r, 56, 126))
            way = pick(self.r, ["tune", "strum", "picked"], [.6, .2, .2])
            if way == "strum":
                patterns = [pick(self.r, TRIPLETS) for _ in range(2)]
                return self.piece.strummed(0, self.bars, self.chords, patterns, drop=.05)
            if way == "picked":
                return self.piece.picked(0, self.bars, self.chords, [pick(self.r, PICKED_TRIPLETS)])
            cells = pick(self.r, [c.C_TRIP, TRIPLET_CELLS])
        self.piece.melody(0, self.bars, self.chords, cells, bass=bool(self.r.rand() < .4),
                          lo=int(self.r.randint(45, 60)), hi=int(self.r.randint(72, 82)))

    def wide(self):
        """A tempo at the end of what is played: slow ballads, fast strums and tunes."""
        c = self.compose
        self.metre = pick(self.r, ["4/4", "3/4"], [.75, .25])
        four = self.metre == "4/4"
        if self.r.rand() < .5:
            self.start(between(self.r, 38, 58))
            if self.r.rand() < .5:
                ways = STRUMMED["sixteenths"][2] if self.r.rand() < .5 else STRUMMED["eighths"][2]
                return self.piece.strummed(0, self.bars, self.chords,
                                           [pick(self.r, ways[4 if four else 3])], drop=.05)
            if self.r.rand() < .5:
                way = pick(self.r, [PICKED, PICKED_SIXTEENTHS])[4 if four else 3]
                return self.piece.picked(0, self.bars, self.chords, [pick(self.r, way)])
            return self.piece.melody(0, self.bars, self.chords, pick(self.r, [c.C_SYNC, c.C_RUN]),
                                     bass=bool(self.r.rand() < .6))
        self.start(between(self.r, 170, 230))
        if self.r.rand() < .6:
            ways = STRUMMED[pick(self.r, ["quarters", "downstrokes", "held"])][2]
            return self.piece.strummed(0, self.bars, self.chords,
                                       [pick(self.r, ways[4 if four else 3])], drop=.05)
        return self.piece.melody(0, self.bars, self.chords,
                                 pick(self.r, [c.C_SIMPLE, self.slow_cells()]),
                                 bass=bool(self.r.rand() < .6))

    def mixed(self):
        pick(self.r, [self.strum, self.pick_strings, self.sing, self.click],
             [.38, .22, .35, .05])()

    def make(self, way):
        """All ways of playing are mixed, or one of "jig", "triplets" and "wide"."""
        getattr(self, way)()
        if way != "jig" and self.r.rand() < .2 and not self.piece.swing:
            whole = self.piece.compound or self.r.rand() < .5
            self.piece.pickup([-12] if whole else [-12, -6], [60, 62])
        if self.r.rand() < .45:
            depth, length, phase = self.r.uniform(.01, .1), between(self.r, 12, 80), self.r.uniform(0, 6)
            self.piece.curve = lambda beat: 1 + depth * np.sin(2 * np.pi * beat / length + phase)
        notes, truth, _ = self.piece.perform()
        return notes, truth


def cut_at_bar(r, truth, latest):
    """Where someone who plays to a click cuts a take: at a bar line, nearly."""
    bars = [time for time, place in truth["beats"] if place == 1 and 0 <= time < latest]
    return max(0.0, pick(r, bars) + float(r.normal(0, .015))) if bars else 0.0


def cropped(notes, truth, start, end):
    """What is heard between two times."""
    kept = [dict(note, onset=note["onset"] - start, end=note["end"] - start) for note in notes
            if start <= note["onset"] < end]
    beats = [[time - start, place] for time, place in truth["beats"] if start - .3 < time < end + 1]
    return kept, dict(truth, beats=beats)


def heard(r, notes, single):
    """Notes as a detection hears them: some missed, some doubled, strengths and times inexact."""
    missed, spread = r.uniform(0, .05 if single else .15), r.uniform(.1, .4)
    found = []
    for note in notes:
        if r.rand() < missed:
            continue
        later = [n["onset"] for n in notes if n["string"] == note["string"]
                 and n["onset"] > note["onset"]]
        onset = max(0.0, round((note["onset"] + r.normal(0, .005)) / FRAME) * FRAME)
        end = max(onset + .06, min([note["end"]] + later))
        strength = note["strength"] * np.exp(r.normal(0, spread))
        found.append(dict(onset=onset, end=end, pitch=note["pitch"], string=note["string"],
                          strength=float(strength), probability=float(r.uniform(.75, 1))))
        if r.rand() < .03:
            found.append(dict(found[-1], onset=max(0.0, onset + r.uniform(-.05, .25)), strength=.25,
                              pitch=note["pitch"] + pick(r, [12, -12, 7]), probability=.6))
    return sorted(found, key=lambda note: (note["onset"], note["pitch"]))


def own_piece(compose, seed, way="mixed"):
    r = np.random.RandomState(seed)
    notes, truth = Maker(compose, r).make(way)
    notes = [dict(onset=n["onset"], end=n["off"], pitch=n["midi"], string=n["string"],
                  strength=n["vel"]) for n in notes]
    last = max(note["onset"] for note in notes)
    way = r.rand()
    start = float(r.uniform(0, 6)) if way < .4 else cut_at_bar(r, truth, 6) if way < .6 else 0.0
    end = float(r.uniform(.6, 1)) * last if r.rand() < .4 else last + 1
    notes, truth = cropped(notes, truth, start, end)
    return heard(r, notes, False), truth


def listed_piece(train_set, seed):
    notes, truth = train_set.piece(seed)
    notes = [dict(onset=n["onset"], end=max(n["offset"], n["onset"] + .03), pitch=n["midi"],
                  string=n["string"], strength=n["strength"], probability=n["probability"])
             for n in notes]
    r = np.random.RandomState(seed)
    if r.rand() < .2:
        return cropped(notes, truth, cut_at_bar(r, truth, 6), notes[-1]["onset"] + 1)
    return notes, truth


def performed_piece(performance, seed):
    """A part of a real performance, or all of it; its player's loudness is not known."""
    r = np.random.RandomState(seed)
    notes = [dict(onset=onset, end=onset + length, pitch=int(round(pitch)), string=string,
                  strength=float(r.uniform(.6, 1)))
             for onset, length, pitch, string in performance["notes"]]
    truth = dict(beats=performance["beats"], bpm=float(performance["tempo"]), compound=False,
                 beats_per_bar=max(place for _, place in performance["beats"]))
    length = float(r.uniform(14, 30))
    start = float(r.uniform(0, max(.1, performance["duration"] - length)))
    if r.rand() < .4:
        start = 0.0
    notes, truth = cropped(notes, truth, start, start + length)
    return heard(r, notes, False), truth


def heard_piece(file):
    """What was heard of a labelled recording."""
    truth = json.loads(file.with_name(file.name.replace(".heard", "")).read_text(encoding="utf-8"))
    notes = [dict(onset=n["onset"], end=n["offset"], pitch=n["midi"],
                  string=n["string"] if isinstance(n["string"], int) else -1, strength=n["strength"],
                  probability=n["probability"])
             for n in json.loads(file.read_text(encoding="utf-8"))["notes"]]
    return sorted(notes, key=lambda note: (note["onset"], note["pitch"])), truth
