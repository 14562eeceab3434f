# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that no layer calls what a layer above it, or beside it, defines.

Usage: check_symbols.py LAYER=ARCHIVE...    (a layer may have several archives)
Includes tell nothing of a function that is declared below and defined above; the symbols of the
static libraries do. Prints one line for each violation and ends with status 1 if there is any.
"""
import collections
import subprocess
import sys

import check_layers

# Inline functions, templates and tables of virtual functions are in every archive that uses them.
SHARED_KINDS = "VWu"


def output(*command, text=None):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def symbols(archive):
    """The names that only this archive defines, and those that it needs from others."""
    own, defined, needed = set(), set(), set()
    for line in output("nm", "--format=posix", archive).splitlines():
        name, kind, *_ = line.split() + [""]
        if kind == "U":
            needed.add(name)
        elif kind.isalpha():
            defined.add(name)
            if kind.isupper() and kind not in SHARED_KINDS:
                own.add(name)
    return own, needed - defined


def violations(archives):
    """archives: pairs of a layer and the path of one of its archives."""
    definers, needs = collections.defaultdict(set), collections.defaultdict(set)
    for layer, archive in archives:
        own, needed = symbols(archive)
        needs[layer] |= needed
        for name in own:
            definers[name].add(layer)
    for layer, names in needs.items():
        for name in sorted(names & definers.keys()):
            others = definers[name]
            if not any(check_layers.may_use(layer, other) for other in others):
                readable = output("c++filt", text=name).strip()
                yield f"{layer} must not use {' or '.join(sorted(others))}: {readable}"


def main(arguments):
    archives = [argument.split("=", 1) for argument in arguments]
    if not archives:
        sys.exit(__doc__)
    found = list(violations(archives))
    print("\n".join(found) if found else "No layer needs what stands above it.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
