# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks which folder under src/ includes what, that every source states its licence, and that the
tree is one to find things in: no file name stands twice, and no folder of src/ or tests/ is overfull.

Usage: check_layers.py [ROOT]    (default: the project that this script lies in)
Prints one line "file:line: problem" for each violation and ends with status 1 if there is any.
"""
import collections
import pathlib
import re
import sys

# A folder includes itself and the folders of lower rank. Folders of one rank do not see each other.
RANK = {
    "platform": 0,
    "music": 1, "matrix": 1,
    "fingering": 2,
    "model": 2,
    "audio": 3, "precise": 3, "rhythm": 3, "chords": 3, "analysis": 4, "arrange": 3, "tab": 5, "export": 4, "exchange": 5, "playback": 5, "recording": 6,
    "workflow": 7,
    "cli": 8, "ui": 8,
}

# Layers that use less than their rank lets them, so that they serve without the rest.
ONLY = {"fingering": {"platform", "music"}, "precise": {"platform", "music", "fingering"},
        "rhythm": {"platform", "music", "fingering"}, "chords": {"platform"}}

# Headers from outside the project belong to the source files of platform, with these exceptions:
# pattern, folders, whether headers may include them too.
FOREIGN = [
    (r"Q[A-Z]\w*|Qt\w*/.*", {"ui"}, True),
    (r"CLI/.*", {"cli"}, False),
    (r"nlohmann/.*", {"export", "tab"}, False),
    (r"cxxabi\.h", {"workflow"}, False),  # readable names of exceptions
    (r"unistd\.h", {"platform", "cli"}, False),
]

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"
MOST_FILES_IN_A_FOLDER = 25
NOT_OVERFULL = ["src", "tests"]
NAMED_ONCE = ["src", "tests", "bench", "tools"]
SOURCES = ["src", "tests", "bench", "tools", "cmake", "scripts", "resources"]
LICENSED = {".cpp", ".h", ".py", ".cmake"}


def may_use(layer, other):
    if layer == other:
        return True
    return RANK[other] < RANK[layer] and other in ONLY.get(layer, RANK)


def own_header_problem(root, file, folder, header):
    target = header.split("/")[0]
    if not (root / "src" / header).is_file():
        return f'"{header}" is no path from src/'
    if may_use(folder, target):
        return None
    return f"{folder} must not include {target}: \"{header}\""


def foreign_header_problem(file, folder, header):
    if re.fullmatch(r"[a-z0-9_]+", header):  # the C++ standard library
        return None
    folders, in_headers = {"platform"}, False
    for pattern, allowed, allowed_in_headers in FOREIGN:
        if re.fullmatch(pattern, header):
            folders, in_headers = allowed, allowed_in_headers
    if folder not in folders:
        return f"<{header}> belongs to {' and '.join(sorted(folders))}, not to {folder}"
    if file.suffix == ".h" and not in_headers:
        return f"<{header}> must not reach others through a header"
    return None


def include_problems(root, file):
    folder = file.relative_to(root / "src").parts[0]
    if folder not in RANK:
        yield 1, f"the folder src/{folder} has no place among the layers"
        return
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if not found:
            continue
        own, foreign = found.groups()
        problem = (own_header_problem(root, file, folder, own) if own
                   else foreign_header_problem(file, folder, foreign))
        if problem:
            yield number, problem


def files_under(root, folder):
    return sorted(path for path in (root / folder).rglob("*") if path.is_file())


def uses_problems(root):
    """What a layer says that it uses is what its sources include, no more and no less."""
    for file in sorted((root / "src").glob("*/CMakeLists.txt")):
        said = re.search(r"^ *USES (.*)", file.read_text(encoding="utf-8"), re.MULTILINE)
        if not said:
            continue
        folder = file.parent
        used = {include.split("/")[0] for source in files_under(root, f"src/{folder.name}")
                if source.suffix in {".cpp", ".h"}
                for include in re.findall(r'^#include "([^"]+)"',
                                          source.read_text(encoding="utf-8"), re.MULTILINE)}
        for layer in sorted((used - {folder.name}) ^ set(said[1].split())):
            yield (f"{file.relative_to(root)}:1: " +
                   (f"says nothing of {layer}, which is included" if layer in used else
                    f"names {layer}, which is not included"))


def name_problems(root):
    first = {}
    for folder in NAMED_ONCE:
        for file in files_under(root, folder):
            if file.suffix in {".cpp", ".h"}:
                known = first.setdefault(file.name, file)
                if known is not file:
                    yield f"{file.relative_to(root)}:1: has the name of {known.relative_to(root)}"


def folder_problems(root):
    files = collections.Counter(file.parent for top in NOT_OVERFULL
                                for file in files_under(root, top))
    for folder, count in sorted(files.items()):
        if count > MOST_FILES_IN_A_FOLDER:
            yield (f"{folder.relative_to(root)}:1: holds {count} files, more than "
                   f"{MOST_FILES_IN_A_FOLDER}")


def problems(root):
    for file in files_under(root, "src"):
        if file.suffix in {".cpp", ".h"}:
            for number, problem in include_problems(root, file):
                yield f"{file.relative_to(root)}:{number}: {problem}"
    yield from uses_problems(root)
    yield from name_problems(root)
    yield from folder_problems(root)
    for folder in SOURCES:
        for file in files_under(root, folder):
            if file.suffix in LICENSED or file.name == "CMakeLists.txt":
                head = file.read_text(encoding="utf-8").split("\n", 2)[:2]
                if not any(LICENCE in line for line in head):
                    yield f"{file.relative_to(root)}:1: begins without \"{LICENCE}\""


def main(arguments):
    root = pathlib.Path(arguments[0] if arguments else pathlib.Path(__file__).parents[2]).resolve()
    if not files_under(root, "src"):
        sys.exit(f"{root}/src: there are no sources to check")
    found = list(problems(root))
    print("\n".join(found) if found else "The layers are in order.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
