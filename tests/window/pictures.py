# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the pictures of the README and of the help.

Usage: pictures.py PREFIX DRAG_SOURCE RECORDING FOLDER
The same words as scenario.py, so that tests/window/run can run it; nothing is dragged here.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

from desk import SCREEN, Window, centre, wait_for, window_named, xdotool

TITLE = "First Steps"


class Pictures:
    def __init__(self, prefix, recording, folder):
        self.program = f"{prefix}/bin/korvel"
        self.recording = recording
        self.folder = pathlib.Path(folder)
        home = pathlib.Path(tempfile.mkdtemp(prefix="korvel-home-"))
        self.settings = home / "config" / "korvel" / "korvel.conf"
        self.settings.parent.mkdir(parents=True)
        self.environment = dict(os.environ, HOME=str(home), LANGUAGE="en",
                                XDG_DATA_HOME=str(home / "data"),
                                XDG_CONFIG_HOME=str(home / "config"),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")

    def start(self, theme, *files):
        """theme: 1 is light, 2 is dark."""
        self.settings.write_text(f"[General]\naskedForFolder=true\nkeepRecordings=false\ntheme={theme}\n"
                                 f"lastSong={TITLE}/{TITLE}\n")
        self.window = Window(self.program, *files, environment=self.environment)
        self.window.find("frame", "Workbench")

    def take(self, name):
        xdotool("mousemove", 1279, 899)
        subprocess.run(["import", "-window", window_named("Workbench"), "-strip",
                        str(self.folder / f"{name}.png")], check=True)

    def first_song(self):
        self.start(1, self.recording)
        wait_for("the song", lambda: "chord 1 of" in self.window.text("Tablature").lower())

    def page(self):
        """The chords to sing from, and back to the tablature."""
        self.window.click("page tab", "Page")
        self.take("page")
        self.window.click("page tab", "Tablature")

    def practising(self):
        self.window.click("page tab", "Practise")
        self.window.find("check box", "Faster and faster")
        self.take("practice")
        self.window.click("page tab", "Fretboard")

    def importing(self):
        """Another recording, long enough to be seen while it is heard."""
        long = self.settings.parent / "Evening Practice.ogg"
        subprocess.run(["ffmpeg", "-v", "error", "-stream_loop", "150", "-i", self.recording, "-c",
                        "copy", str(long)], check=True)
        subprocess.run([self.program, str(long)], env=self.environment, check=True)
        self.window.click("page tab", "Jobs")
        wait_for("a part of the import", lambda: self.progress() > 5)
        self.take("import")
        newest = self.window.all("push button", "Cancel and drop")[0]
        xdotool("mousemove", *centre(newest), "click", 1)
        wait_for("the import to go", lambda: not self.window.has("table cell", "Evening"))

    def progress(self):
        return self.window.find("progress bar", "Progress of Song Import: Evening").get_current_value()

    def song(self, name):
        """A loop, and the cursor on a chord."""
        box = self.window.find("text", "Tablature").get_extents(SCREEN)
        for share, y in ((0.19, 58), (0.33, 58), (0.25, 84)):  # the ruler, below title and tempo
            xdotool("mousemove", box.x + int(box.width * share), box.y + y, "click", 1)
        wait_for("the loop", lambda: self.window.has("label", "Loop "))
        self.take(name)

    def recording_live(self):
        played = subprocess.Popen(["paplay", self.recording], env=self.environment)
        self.window.click("page tab", "Record")
        self.window.click("push button", "Record")
        wait_for("chords that are heard",
                 lambda: self.window.text("Chords heard").count("\n") > 8)
        self.take("record")
        played.kill()
        played.wait()

    def end(self):
        self.window.kill()


def main():
    prefix, _, recording, folder = sys.argv[1:]
    pictures = Pictures(prefix, recording, folder)
    pictures.folder.mkdir(parents=True, exist_ok=True)
    try:
        pictures.first_song()
        pictures.song("song")
        pictures.page()
        pictures.practising()
        pictures.importing()
        pictures.end()
        pictures.start(2)
        pictures.song("dark")
        pictures.end()
        pictures.start(1)
        pictures.recording_live()
    finally:
        pictures.end()


main()
