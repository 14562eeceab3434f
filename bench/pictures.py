# SPDX-License-Identifier: GPL-3.0-or-later
"""The pictures of docs/detection.md."""
import subprocess

import matplotlib
import numpy

matplotlib.use("Agg")
from matplotlib import pyplot

RATE, WINDOW, HOP = 22050, 4096, 256
LOWEST, HIGHEST = 38, 88  # MIDI numbers
NAMES = ["C", "C#", "D", "Eb", "E", "F", "F#", "G", "G#", "A", "Bb", "B"]
DPI = 110


def spectrogram(file, first, last):
    """Compressed magnitudes, one row a third of a semitone, from `first` to `last` seconds."""
    decode = ["ffmpeg", "-nostdin", "-v", "error", "-i", file, "-ac", "1", "-ar", str(RATE), "-f",
              "f32le", "-"]
    samples = numpy.frombuffer(subprocess.run(decode, check=True, capture_output=True).stdout,
                               dtype=numpy.float32)
    padded = numpy.pad(samples, WINDOW // 2)
    starts = numpy.arange(int(first * RATE), min(int(last * RATE), len(samples)), HOP)
    frames = numpy.stack([padded[start:start + WINDOW] for start in starts]) * numpy.hanning(WINDOW)
    lines = numpy.abs(numpy.fft.rfft(frames))
    pitches = numpy.arange(LOWEST - 0.5, HIGHEST, 1 / 3)
    bins = 440 * 2 ** ((pitches - 69) / 12) * WINDOW / RATE
    rows = numpy.stack([numpy.interp(bins, numpy.arange(lines.shape[1]), row) for row in lines])
    return (rows / rows.max()).T ** 0.4


def name_of(midi):
    return f"{NAMES[midi % 12]}{midi // 12 - 1}"


def draw_notes(file, labelled, found, seconds, picture):
    """A spectrogram with the labelled notes as outlines and the found ones as lines in them."""
    first, last = seconds
    figure, axes = pyplot.subplots(figsize=(9.5, 5.2), layout="constrained")
    axes.imshow(spectrogram(file, first, last), origin="lower", aspect="auto", cmap="Greys",
                extent=(first, last, LOWEST - 0.5, HIGHEST), interpolation="nearest")
    for note in labelled:
        axes.add_patch(pyplot.Rectangle((note["onset"], note["midi"] - 0.5),
                                        note["offset"] - note["onset"], 1, fill=False,
                                        edgecolor="tab:blue", linewidth=1))
    for note in found:
        axes.plot([note["onset"], note["offset"]], [note["midi"]] * 2, color="tab:red",
                  linewidth=2, solid_capstyle="butt")
        axes.plot(note["onset"], note["midi"], "|", color="tab:red", markersize=7)
    axes.set(xlim=seconds, ylim=(LOWEST - 0.5, HIGHEST), xlabel="seconds")
    ticks = [midi for midi in range(LOWEST, HIGHEST) if midi % 12 in (4, 9)]
    axes.set_yticks(ticks, [name_of(midi) for midi in ticks])
    handles = [pyplot.Line2D([], [], color="tab:red", linewidth=2),
               pyplot.Rectangle((0, 0), 1, 1, fill=False, edgecolor="tab:blue")]
    axes.legend(handles, ["found", "played"], loc="upper right")
    figure.savefig(picture, dpi=DPI)


def draw_scores(own, peer, kinds, figures, picture):
    """F1 by kind of clip beside the peer's, one panel a figure. kinds, figures: key to title."""
    figure, panels = pyplot.subplots(1, len(figures), figsize=(9.5, 3.4), sharey=True,
                                     layout="constrained")
    rows = range(len(kinds))
    least = min(values[kind][key] for values in (own, peer) for kind in kinds for key in figures)
    for axes, (key, title) in zip(panels, figures.items()):
        left, right = ([values[kind][key] for kind in kinds] for values in (peer, own))
        axes.hlines(rows, left, right, color="lightgrey", linewidth=3)
        axes.plot(left, rows, "o", color="tab:grey", label="peer", clip_on=False)
        axes.plot(right, rows, "o", color="tab:red", label="Korvel", clip_on=False)
        axes.set(title=f"{title} F1", xlim=(numpy.floor(10 * least) / 10, 1))
        axes.grid(axis="x", alpha=0.3)
    panels[0].set_yticks(rows, kinds.values())
    panels[0].invert_yaxis()
    panels[0].legend(loc="lower left")
    figure.savefig(picture, dpi=DPI)
