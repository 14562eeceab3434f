#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plays labelled recordings in rooms and records them again, to measure how the detection hears there.

Usage: rooms.py --set DIR --out DIR [--seed N] [--rooms N] [--amplifiers]

--set is a set of labelled recordings, as bench/labelled.py describes them, of which the variants are
left out; --out becomes another one. Every recording goes through --rooms bodies, rooms and
microphones of its own (1 by default), which follow from the seed. Those of a fit have seeds below
1000, those that are measured with from 1000 on. With --amplifiers they go through distorting amplifiers
in place of rooms.
"""
import argparse
import json
import os
import sys
import zlib

import numpy as np
import soundfile

sys.dont_write_bytecode = True

import places


def generator(*key):
    return np.random.RandomState(zlib.crc32('/'.join(map(str, key)).encode()) & 0x7fffffff)


def mono(file):
    y, rate = soundfile.read(file)
    if rate != places.RATE:
        raise SystemExit('%s: has %d samples a second, not %d' % (file, rate, places.RATE))
    return y.mean(axis=1) if y.ndim > 1 else y


def record(clip, options, number):
    name = '%s_%s%d' % (clip['clip'], 'amplifier' if options.amplifiers else 'room', number)
    change = places.amplified if options.amplifiers else places.recorded
    y = change(mono(os.path.join(options.set, clip['audio'])), generator(options.seed, name))
    soundfile.write(os.path.join(options.out, name + '.wav'), y, places.RATE, subtype='PCM_16')
    with open(os.path.join(options.set, clip['clip'] + '.json')) as file:
        truth = json.load(file)
    changed = dict(clip=name, audio=name + '.wav')
    with open(os.path.join(options.out, name + '.json'), 'w') as file:
        json.dump({**truth, **changed}, file)
    return {**clip, **changed}


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--set', required=True, metavar='DIR')
    parser.add_argument('--out', required=True, metavar='DIR')
    parser.add_argument('--seed', type=int, default=1000)
    parser.add_argument('--rooms', type=int, default=1)
    parser.add_argument('--amplifiers', action='store_true')
    options = parser.parse_args()
    with open(os.path.join(options.set, 'index.json')) as file:
        clips = [clip for clip in json.load(file) if not clip['kind'].startswith('variant')]
    os.makedirs(options.out, exist_ok=True)
    index = [record(clip, options, number) for clip in clips for number in range(options.rooms)]
    with open(os.path.join(options.out, 'index.json'), 'w') as file:
        json.dump(index, file, indent=1)


if __name__ == '__main__':
    main()
