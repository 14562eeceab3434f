# SPDX-License-Identifier: GPL-3.0-or-later
"""Tells what is in drawn files: all words of an SVG, the size of the papers of a PDF, the width of a
PNG.

Usage: drawn.py FILE...
"""
import pathlib
import re
import struct
import sys
import xml.etree.ElementTree

for name in sys.argv[1:]:
    content = pathlib.Path(name).read_bytes()
    if content.startswith(b"%PDF-"):
        boxes = re.findall(rb"/MediaBox \[([0-9. ]*)\]", content)
        print(name, len(boxes), *{box.decode() for box in boxes})
    elif content.startswith(b"\x89PNG"):
        print(name, *struct.unpack(">I", content[16:20]))
    else:
        words = (text.strip() for text in xml.etree.ElementTree.fromstring(content).itertext())
        print(name, *(word for word in words if word))
