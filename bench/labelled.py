# SPDX-License-Identifier: GPL-3.0-or-later
"""Sets of labelled recordings, and what a scorer makes of transcriptions of them.

A set is a folder with index.json, a list of {"clip", "kind", "audio"}, the recordings, and one truth
file a clip, "clip".json. A scorer is called as
"FILE --set DIR --pred FOLDER --by kind --json FIGURES".
"""
import importlib.util
import json
import subprocess
import sys

TOTAL = "ALL (no variants)"
ALL = "**all but the variants**"


def module_of(file):
    """A Python file as a module."""
    spec = importlib.util.spec_from_file_location(file.stem, file)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def clips_of(folder):
    return json.loads((folder / "index.json").read_text(encoding="utf-8"))


def is_variant(kind):
    return kind.startswith("variant")


def kinds_of(figures):
    """The kinds of clips that were scored, the variants last."""
    return sorted((kind for kind in figures if kind != TOTAL),
                  key=lambda kind: (is_variant(kind), kind))


def score(scorer, recordings, predictions, figures, **output):
    """The figures of each kind and of TOTAL; they are left in a file as well."""
    subprocess.run([sys.executable, scorer, "--set", recordings, "--pred", predictions,
                    "--by", "kind", "--json", figures], check=True, **output)
    return json.loads(figures.read_text(encoding="utf-8"))


def markdown(head, rows):
    lines = ["| " + " | ".join(row) + " |" for row in [head, *rows]]
    return "\n".join([lines[0], "|" + "---|" * len(head), *lines[1:]])


def number(value):
    return "" if value is None else f"{value:.3f}"


def put_between_markers(file, name, text):
    """Replaces what stands between <!-- figures, NAME: begin --> and the same with end."""
    begin, end = (f"<!-- figures, {name}: {word} -->" for word in ("begin", "end"))
    before, rest = file.read_text(encoding="utf-8").split(begin)
    after = rest.split(end)[1]
    file.write_text(f"{before}{begin}\n{text}\n{end}{after}", encoding="utf-8")
