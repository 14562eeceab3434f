# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a command until it has written a second of sound into a new file, sends it the signals that are
named, and ends as it does. A store has to be there before, as it is as large when it is made."""
import pathlib
import signal
import subprocess
import sys
import time


def files():
    return {file for file in pathlib.Path().rglob("*") if not file.name.startswith("Korvel")}


def sizes(known):
    for file in files() - known:
        try:
            yield file.stat().st_size
        except FileNotFoundError:
            pass  # It has got its last name meanwhile.


before = files()
with subprocess.Popen(sys.argv[2:]) as program:
    while program.poll() is None and not any(size > 4 * 44100 for size in sizes(before)):
        time.sleep(0.02)
    for name in sys.argv[1].split(","):
        program.send_signal(getattr(signal, "SIG" + name))
sys.exit(program.returncode)
