# SPDX-License-Identifier: GPL-3.0-or-later
"""Asks alphaTab and TuxGuitar what they understand of scores and tablatures."""
import json
import os
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
PROJECT = HERE.parents[1]
TUXGUITAR = pathlib.Path("/usr/share/tuxguitar")
# The last one opens the archives that files of Guitar Pro 7 are.
TUXGUITAR_LIBRARIES = [TUXGUITAR / "lib/tuxguitar-lib.jar", TUXGUITAR / "plugins/tuxguitar-gtp.jar",
                       TUXGUITAR / "plugins/tuxguitar-gpx.jar",
                       pathlib.Path("/usr/share/java/commons-compress.jar")]


def leave_out(what):
    print(f"left out: {what}")
    sys.exit(77)


def printed(command):
    out = subprocess.run(command, check=False, capture_output=True)
    if out.returncode:
        sys.exit(f"{command[0]}: {out.stderr.decode(errors='replace')[:3000]}")
    return json.loads(out.stdout)


def alphatab(files):
    """What alphatab.mjs prints of each."""
    library = pathlib.Path(os.environ.get("KORVEL_ALPHATAB", PROJECT / "build/peers"))
    library /= "node_modules/@coderline/alphatab/dist/alphaTab.mjs"
    if not shutil.which("node") or not library.is_file():
        leave_out("alphaTab is not installed; KORVEL_ALPHATAB names the folder of node_modules")
    return printed(["node", HERE / "alphatab.mjs", library, *files])


def tuxguitar(files):
    """What TuxGuitarSongs.java prints of each."""
    if not shutil.which("javac") or not all(each.is_file() for each in TUXGUITAR_LIBRARIES):
        leave_out("TuxGuitar is not installed, or no JDK or no libcommons-compress-java")
    libraries = os.pathsep.join(map(str, TUXGUITAR_LIBRARIES))
    return printed(["java", "-cp", libraries, HERE / "TuxGuitarSongs.java", *files])
