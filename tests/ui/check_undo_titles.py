# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that the window can translate the title of every action that can be undone.

Usage: check_undo_titles.py [ROOT]    (default: the project that this script lies in)
Titles stand where an UndoGroup or an Edit is made, or, in a file whose groups get theirs as a parameter, where
`edit` is called. Those of the song menu come from its table, which another test looks at.
"""
import pathlib
import re
import sys

LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
GROUP = re.compile(r"\b(?:UndoGroup\b(?:>|\s+\w+)?|Edit\s+\w+)\s*\(([^;]*);")
EDIT = re.compile(r"\bedit\(([^;{]*?),\s*\[")
CONSTANT = re.compile(r'\bconstexpr const char\* (\w+) = "([^"]*)"')
KNOWN = re.compile(r'QT_TRANSLATE_NOOP\("UndoAction",\s*"([^"]*)"\)')


def titles_given_to_edit(source):
    constants = dict(CONSTANT.findall(source))
    for argument in EDIT.findall(source):
        yield from LITERAL.findall(argument)
        yield from (constants[word] for word in re.findall(r"\w+", argument) if word in constants)


def titles(source):
    for arguments in GROUP.findall(source):
        found = LITERAL.findall(arguments) or (
            [] if "undoTitle(" in arguments else list(titles_given_to_edit(source)))
        if not found and "undoTitle(" not in arguments:
            yield None
        yield from found


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    known = set(KNOWN.findall((root / "src/ui/translations/LowerTexts.h").read_text()))
    problems, seen = [], 0
    for file in sorted((root / "src/workflow").rglob("*.cpp")):
        for title in titles(file.read_text(encoding="utf-8")):
            seen += 1
            if title is None:
                problems.append(f"{file.relative_to(root)}: has an UndoGroup without a title here")
            elif title not in known:
                problems.append(f'{file.relative_to(root)}: "{title}" is missing in LowerTexts.h')
    if seen == 0:
        problems.append("src/workflow: has no UndoGroup")
    print("\n".join(problems) or "All titles of actions can be translated.")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
