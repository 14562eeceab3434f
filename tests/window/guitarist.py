# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist at the window: what the sessions of this folder have in common."""
import json
import os
import pathlib
import re
import subprocess
import tempfile

from desk import ENABLED, Window, centre, drag, screenshot, wait_for, window_named, xdotool

TITLE = "First Steps"


class Guitarist:
    def __init__(self, prefix, drag_source, recording, pictures):
        self.program = f"{prefix}/bin/korvel"
        self.tool = f"{prefix}/bin/korvel-cli"
        self.drag_source = drag_source
        self.recording = recording
        self.title, self.first_chord = TITLE, "Am"
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
        def cells():
            return [cell for cell in self.window.all("table cell", title)
                    if cell.get_name() == title]

        return wait_for(f"{title!r} in the tree", cells)[-1]

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
        self.song_cell(self.title)
        wait_for("the tablature", lambda: self.first_chord in self.place())
        self.picture("2-imported")

    def position(self):
        return int(self.window.find("label", "Position").get_description().split()[0])

    def can_be_pressed(self, button):
        return self.window.find("push button", button).get_state_set().contains(ENABLED)

    def chord_at_cursor(self):
        return int(re.search(r"chord (\d+)", self.place(), re.IGNORECASE).group(1))

    def place(self):
        return self.window.text("Tablature")

    def spoken(self):
        """Chords in bars begin with the number of theirs."""
        names = [item.get_name() for item in self.window.all("list item", "")]
        return next((name for name in names if re.search(r"chord \d", name, re.IGNORECASE)), "")

    def end(self):
        if self.window.close() != 0:
            raise AssertionError("the window did not end well")

    def play_through(self, *steps):
        """A picture of the screen where a step fails; nothing goes on behind the last one."""
        self.pictures.mkdir(parents=True, exist_ok=True)
        try:
            for step in steps:
                step()
        except AssertionError:
            self.picture("failed")
            raise
        finally:
            if self.window:
                self.window.kill()


def place_of_window(title):
    window = window_named(title)
    if not window:
        return None
    shape = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], text=True,
                           capture_output=True, check=True)
    values = dict(line.split("=") for line in shape.stdout.split())
    return (int(values["X"]) + int(values["WIDTH"]) // 2,
            int(values["Y"]) + int(values["HEIGHT"]) // 2)
