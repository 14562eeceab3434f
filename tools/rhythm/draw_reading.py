#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws how the rhythm of a recording was read: its notes in time, the beats and bar lines through them, the
chords above.

Usage: draw_reading.py NOTES.json PICTURE.svg [SECONDS]    as "korvel-cli transcribe --json" writes the notes
"""
import html
import json
import sys

WIDTH, LEFT, TOP, ROW = 900, 40, 46, 5
NAMES = "C C# D Eb E F F# G Ab A Bb B".split()


def drawn(heard, seconds):
    notes = [note for note in heard["notes"] if note["onset"] < seconds]
    lowest, highest = min(n["midi"] for n in notes) - 2, max(n["midi"] for n in notes) + 2
    height = TOP + (highest - lowest) * ROW + 40
    scale = (WIDTH - LEFT - 10) / seconds

    def x(time):
        return LEFT + max(time, 0) * scale

    def y(midi):
        return TOP + (highest - midi) * ROW

    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
           'font-family="sans-serif" font-size="11">')
    yield f'<rect width="{WIDTH}" height="{height}" fill="white"/>'
    bars = {round(time, 3): number for number, time in enumerate(heard["downbeats"], 1)}
    for time in heard["beats"]:
        if not 0 <= time < seconds:
            continue
        bar = bars.get(round(time, 3))
        yield (f'<line x1="{x(time):.1f}" x2="{x(time):.1f}" y1="{TOP - 8}" y2="{height - 32}" '
               f'stroke="{"#222" if bar else "#bbb"}" stroke-width="{1.6 if bar else 0.7}"/>')
        if bar:
            yield f'<text x="{x(time):.1f}" y="{height - 18}" text-anchor="middle">{bar}</text>'
    for begin, end, name in heard["chords"]:
        if name != "N" and begin < seconds:
            yield f'<text x="{x(begin) + 3:.1f}" y="{TOP - 18}" font-weight="bold">{html.escape(name)}</text>'
    for note in notes:
        end = min(note["offset"], seconds)
        yield (f'<rect x="{x(note["onset"]):.1f}" y="{y(note["midi"]):.1f}" rx="1.5" '
               f'width="{max((end - note["onset"]) * scale, 2):.1f}" height="{ROW - 1}" '
               f'fill="#1f6f8b" opacity="{0.35 + 0.65 * note["probability"]:.2f}"/>')
    for midi in range(lowest + 1, highest):
        if midi % 12 == 0:
            yield f'<text x="4" y="{y(midi) + ROW:.1f}">{NAMES[midi % 12]}{midi // 12 - 1}</text>'
    for second in range(0, int(seconds) + 1, 2):
        yield f'<text x="{x(second):.1f}" y="{height - 4}" fill="#777" text-anchor="middle">{second} s</text>'
    yield "</svg>"


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        heard = json.load(file)
    seconds = float(sys.argv[3]) if len(sys.argv) > 3 else max(n["offset"] for n in heard["notes"])
    with open(sys.argv[2], "w", encoding="utf-8") as file:
        file.write("\n".join(drawn(heard, seconds)) + "\n")


main()
