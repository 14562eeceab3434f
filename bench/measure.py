# SPDX-License-Identifier: GPL-3.0-or-later
"""Whole processes, measured from outside."""
import os
import statistics
import subprocess
import time
from collections import namedtuple

Run = namedtuple("Run", "wall cpu memory")  # seconds, seconds, bytes

MIB = 1 << 20


def run(command):
    """One run of a command that must succeed; what it prints is thrown away."""
    start = time.monotonic()
    child = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        raise SystemExit(f"{command[0]} ended with status {child.returncode}: {command}")
    return Run(time.monotonic() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024)


def median(runs):
    return Run(*(statistics.median(values) for values in zip(*runs)))


def check(claim, holds):
    """A line for a figure that is to be reached."""
    print(f"    {'ok    ' if holds else 'MISSED'} {claim}")
    return holds
