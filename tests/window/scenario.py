# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist's first session with the window, from a recording to an arrangement that is handed on,
and the next start.

Usage: scenario.py PREFIX DRAG_SOURCE RECORDING PICTURES
PREFIX is where Korvel is installed, PICTURES the folder for a screenshot of every state. To be run
on a screen and a session bus of its own; tests/window/run makes both.
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from desk import Window, centre, drag, screenshot, wait_for, xdotool

TITLE = "First Steps"


class Session:
    def __init__(self, prefix, drag_source, recording, pictures):
        self.program = f"{prefix}/bin/korvel"
        self.tool = f"{prefix}/bin/korvel-cli"
        self.drag_source = drag_source
        self.recording = recording
        self.pictures = pathlib.Path(pictures)
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="korvel-home-"))
        self.environment = dict(os.environ, HOME=str(self.home), LANGUAGE="en",
                                XDG_DATA_HOME=str(self.home / "data"),
                                XDG_CONFIG_HOME=str(self.home / "config"),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.window = None

    # What the window is made to do.

    def start(self):
        self.window = Window(self.program, environment=self.environment)
        self.window.find("frame", "Workbench")

    def picture(self, name):
        screenshot(self.pictures, name)

    def log(self):
        return self.window.text("Log")

    def expect_log(self, line):
        wait_for(f"{line!r} in the log", lambda: line in self.log())

    def song_cell(self, title):
        """The tree has an album of the song's name, too, which stands above it."""
        cells = wait_for(f"{title!r} in the tree", lambda: self.window.all("table cell", title))
        return cells[-1]

    def select(self, title):
        xdotool("mousemove", *centre(self.song_cell(title)), "click", 1)

    def command(self, title, menu, entry):
        """A command of the song's context menu, by the keyboard, since screen readers do not get at
        an open menu either but by its focus. The menu bar has the same entries."""
        xdotool("mousemove", *centre(self.song_cell(title)), "click", 1, "click", 3)
        down = self.window.entries("Song").index(menu) + 1
        right = self.window.entries("Song", menu).index(entry)
        self.window.keys(*["Down"] * down, "Right", *["Down"] * right, "Return")

    # What the store has.

    def songs(self):
        listed = subprocess.run([self.tool, "list"], env=self.environment, check=True, text=True,
                                capture_output=True)
        return listed.stdout.splitlines()

    def dump(self, song):
        dumped = subprocess.run([self.tool, "dump", song], env=self.environment, check=True,
                                text=True, capture_output=True)
        return json.loads(dumped.stdout)

    # The session.

    def import_by_drag_and_drop(self):
        files = subprocess.Popen([self.drag_source, self.recording], env=self.environment)
        try:
            source = wait_for("the file manager", lambda: place_of_window("Files"))
            target = centre(self.window.find("text", "Tablature"))
            drag(source, target)
            self.expect_log("(2/3) scanning chords .....")
            self.picture("1-importing")
            self.expect_log("Song successfully imported.")
        finally:
            files.kill()
            files.wait()
        self.song_cell(TITLE)
        wait_for("the tablature", lambda: "Am" in self.window.text("Tablature"))
        self.picture("2-imported")

    def arrange(self):
        self.command(TITLE, "Extract Voices", "Melody")
        self.expect_log("Melody extracted.")
        self.command(TITLE, "Apply Rhythmn Filters", "4/4")
        self.expect_log("4/4 Metric added")
        self.command(TITLE, "Apply Standard Filters", "Push Down Strings")
        wait_for("three new songs",
                 lambda: len(self.window.all("table cell", TITLE + "(")) == 3)
        self.picture("3-arranged")


    def end(self):
        if self.window.close() != 0:
            raise AssertionError("the window did not end well")

    def expect_stored(self):
        expected = [f"{TITLE}/{TITLE}{tags}" for tags in ("", "(Mld)", "(Mld)(4_4)",
                                                          "(Mld)(4_4)(Psh)")]
        if self.songs() != expected:
            raise AssertionError(f"stored are {self.songs()}")


def place_of_window(title):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                           text=True, capture_output=True)
    if not found.stdout.strip():
        return None
    window = found.stdout.split()[0]
    shape = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], text=True,
                           capture_output=True, check=True)
    values = dict(line.split("=") for line in shape.stdout.split())
    return (int(values["X"]) + int(values["WIDTH"]) // 2,
            int(values["Y"]) + int(values["HEIGHT"]) // 2)


def main():
    session = Session(*sys.argv[1:])
    session.pictures.mkdir(parents=True, exist_ok=True)
    try:
        session.start()
        session.import_by_drag_and_drop()
        session.arrange()
        session.end()
        session.expect_stored()
    except AssertionError:
        session.picture("failed")
        raise
    finally:
        if session.window:
            session.window.kill()


main()
