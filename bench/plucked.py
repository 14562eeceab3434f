# SPDX-License-Identifier: GPL-3.0-or-later
"""Guitar-like sound for the benchmarks: strummed open chords of plucked strings."""
import array
import random
import struct
import subprocess

RATE = 44100
TUNING = [40, 45, 50, 55, 59, 64]  # MIDI numbers, low E first
SHAPES = ["022100", "x02210", "320003", "x32010", "xx0232", "022000", "133211", "x24432"]
STRUM_SECONDS = 1.5


def pluck(midi, seconds, noise):
    """A string after Karplus and Strong: a burst of noise that goes round in a delay line."""
    line = [noise.uniform(-1, 1) for _ in range(round(RATE / (440 * 2 ** ((midi - 69) / 12))))]
    samples = []
    while len(samples) < seconds * RATE:
        samples += line
        line = [0.4995 * (a + b) for a, b in zip(line, line[1:] + line[:1])]
    return samples


def phrase():
    """16-bit samples of all shapes, one after the other."""
    noise = random.Random(7)
    strings = {}
    sound = array.array("h")
    for shape in SHAPES:
        mix = [0.0] * round(STRUM_SECONDS * RATE)
        for string, fret in enumerate(shape):
            if fret == "x":
                continue
            midi = TUNING[string] + int(fret)
            if midi not in strings:
                strings[midi] = pluck(midi, STRUM_SECONDS, noise)
            mix = [a + b for a, b in zip(mix, strings[midi])]
        sound.extend(max(-32768, min(32767, round(5000 * value))) for value in mix)
    return sound


def write_phrase(path):
    data = phrase().tobytes()
    with open(path, "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt ")
        file.write(struct.pack("<IHHIIHH", 16, 1, 1, RATE, 2 * RATE, 2, 16))
        file.write(b"data" + struct.pack("<I", len(data)) + data)


def write_recording(path, phrase_file, minutes):
    """The phrase repeated for that long, in the format that the name's ending tells."""
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-stream_loop", "-1", "-i",
                    phrase_file, "-t", str(minutes * 60), "-b:a", "128k", "-bitexact", path],
                   check=True)
