#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Renders labelled recordings to fit the formulas of the precise detection on.

Usage: render.py --eval DIR --out DIR [--sources a,b] [--kinds c,d] [--seed N] [--rooms N]

The folder --eval has banks.py, single notes of sampled guitars, and make_set.py, which renders
pieces with them; see there for what they need. Writes --out/CLIP.wav and --out/CLIP.json, the notes
that sound in it. The same seed renders the same clips. --rooms tells in how many rooms each piece is
recorded.
"""
import argparse
import os
import sys

sys.dont_write_bytecode = True


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--eval', required=True, metavar='DIR')
    parser.add_argument('--out', required=True, metavar='DIR')
    parser.add_argument('--sources', help='guitars, all by default')
    parser.add_argument('--kinds', help='pieces, all by default')
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--rooms', type=int, default=1)
    options = parser.parse_args()
    sys.path.insert(0, options.eval)
    import clips
    os.makedirs(options.out, exist_ok=True)
    kinds = options.kinds.split(',') if options.kinds else []
    for source in options.sources.split(',') if options.sources else clips.SOURCES:
        clips.render_source(options.out, source, kinds, options.seed,
                            options.rooms)
        print(source, flush=True)


if __name__ == '__main__':
    main()
