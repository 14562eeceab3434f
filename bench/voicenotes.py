# SPDX-License-Identifier: GPL-3.0-or-later
"""How much of the voices of labelled bands is heard right.

The truth of NAME.wav is NAME.voices, {"bass": [[start, end, MIDI number]], "melody": [...]}, with
fractions of a semitone where the recording is not at 440 Hz; a voice that nobody plays is empty. The
figures of a voice are F1 of its notes by onset, within 50 ms and within a tenth of a second, and pitch,
and within that tenth by pitch class.
"""
import json

VOICES = ["melody", "bass"]
COLUMNS = ["melody", "melody, 100 ms", "melody, class", "bass", "bass, 100 ms", "bass, class", "left out", "made up"]
NEAR, WITHIN = .05, .1


def truth_of(audio):
    """None where no voices are known."""
    file = audio.with_suffix(".voices")
    return json.loads(file.read_text(encoding="utf-8")) if file.exists() else None


def matched(truth, found, window, octaves):
    """How many notes of the truth have one of their own that was found."""
    taken = set()
    for start, _, pitch in truth:
        near = []
        for i, (onset, _, heard, _) in enumerate(found):
            off = abs(heard - pitch)
            if octaves:
                off = min(off % 12, 12 - off % 12)
            if i not in taken and abs(onset - start) <= window and off < .6:
                near.append((abs(onset - start), i))
        if near:
            taken.add(min(near)[1])
    return len(taken)


def figures(truth, found):
    """By voice: (F1 within 50 ms, within 100 ms, by pitch class), "left out" where it is there and was
    not clear, "made up" where nobody plays what was heard, or None where nothing is and nothing was
    heard."""
    result = {}
    for voice in found:
        true, heard = truth[voice["voice"]], voice["notes"]
        if not true:
            result[voice["voice"]] = "made up" if heard else None
        elif not heard:
            result[voice["voice"]] = "left out"
        else:
            result[voice["voice"]] = tuple(
                2 * matched(true, heard, window, octaves) / (len(true) + len(heard))
                for window, octaves in ((NEAR, False), (WITHIN, False), (WITHIN, True)))
    return result


def columns_of(rows):
    """Means of the voices that were heard, by column, and how many were left out or made up."""
    result = {}
    for voice in VOICES:
        heard = [row[voice] for row in rows if isinstance(row.get(voice), tuple)]
        for i, title in enumerate(title for title in COLUMNS if title.split(",")[0] == voice):
            result[title] = f"{sum(each[i] for each in heard) / len(heard):.3f}" if heard else ""
    for said in ("left out", "made up"):
        who = [voice for row in rows for voice in VOICES if row.get(voice) == said]
        result[said] = ", ".join(f"{who.count(voice)} {voice}" for voice in VOICES if voice in who)
    return [result[title] for title in COLUMNS]
