# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the songs of the exchange tests and exports each with the tool.

Usage: export_songs.py KORVEL_CLI SONG_MAKER FOLDER
FOLDER is made anew: NUMBER.musicxml, NUMBER.mid, and NUMBER.json with what the store says; and in
its folder "take" the notes of the demo recording in all formats, at the times they were heard at.
"""
import json
import pathlib
import shutil
import subprocess
import sys


def main(cli, maker, folder):
    folder = pathlib.Path(folder)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    store = folder / "Korvel.sqlite"
    titles = subprocess.run([maker, store], check=True, capture_output=True).stdout
    titles = titles.decode().split("\0")[:-1]
    jobs = [(title, None) for title in titles]
    jobs += [("Plain", metric) for metric in ("3/4", "6/8", "12/8")]
    for number, (title, metric) in enumerate(jobs):
        name = folder / f"{number:02}"
        tool = [cli, "--store", store]
        subprocess.run([*tool, "export", title, "--musicxml", f"{name}.musicxml",
                        "--gp5", f"{name}.gp5", "--gp", f"{name}.gp", "--midi", f"{name}.mid", *(["--metric", metric] if metric else [])],
                       check=True)
        song = json.loads(subprocess.run([*tool, "dump", title], check=True,
                                         capture_output=True).stdout)
        name.with_suffix(".json").write_text(json.dumps({"song": song, "metric": metric}))
    print(f"{len(jobs)} exports")
    take = folder / "take"
    take.mkdir()
    demo = pathlib.Path(__file__).parents[2] / "resources/demo/First Steps.ogg"
    subprocess.run([cli, "transcribe", demo, "--json", take / "take.json", "--midi",
                    take / "take.mid", "--musicxml", take / "take.musicxml", "--grid", "slices"],
                   check=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
