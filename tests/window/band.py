# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist who sings with a band's recording: its chords are heard, one is corrected, a capo makes
them easy, the page is printed, and the song is played along with.

Usage: band.py PREFIX DRAG_SOURCE RECORDING PICTURES, as scenario.py; the recording is made here.
"""
import subprocess
import sys

from bandsound import write_band
from desk import centre, wait_for, xdotool
from guitarist import Guitarist

TITLE = "Garage"
ROUND = ("C", "G", "Am", "F")
TIMES = 5


class Singer(Guitarist):
    def __init__(self, prefix, drag_source, _, pictures):
        super().__init__(prefix, drag_source, "", pictures)
        self.title, self.first_chord = TITLE, ROUND[0]
        self.recording = self.home / f"{TITLE}.wav"
        self.paper = self.home / "print.pdf"
        write_band(self.recording, ROUND, TIMES)

    def hear_its_chords(self):
        """Nobody has said that a band plays; the song is heard again as one."""
        self.window.press("push button", "No")
        xdotool("mousemove", *centre(self.song_cell(TITLE)), "click", 1, "click", 3)
        self.window.keys("Up", "Return")  # the last entry is "Hear Again as a Band"
        wait_for("the chords of the band", lambda: "chord 1 of 80" in self.place().lower())

    def correct_a_chord(self):
        """The first of the third bar."""
        self.window.click("text", "Tablature")
        self.window.keys("ctrl+Home", *["Right"] * 8)
        wait_for("the chord of bar 3", lambda: "Bar 3" in self.place() and "Am" in self.place())
        self.window.keys("ctrl+m")
        self.window.find("label", "Name")
        self.window.type("Am7")
        self.window.keys("Return")
        wait_for("the name", lambda: "Am7" in self.place())

    def set_a_capo(self):
        """At fret 5 these chords are G, D, Em and C."""
        self.window.click("page tab", "Page")
        self.picture("b1-page")
        self.window.find("spin button", "Capo").set_current_value(5)
        self.picture("b2-capo")

    def print_it(self):
        """Without a printer it becomes a document."""
        self.window.keys("ctrl+p")
        self.window.press("push button", "Print")
        wait_for("the printed page", lambda: self.paper.read_bytes().rstrip().endswith(b"%%EOF"))

    def play_along(self):
        self.window.find("slider", "Recording or guitar").set_current_value(50)
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.picture("b3-playing")
        self.window.press("push button", "Stop")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))

    def expect_kept(self):
        """The song has the chords, and the paper the shapes behind the capo."""
        self.end()
        for program, words in (([self.tool, "sheet", f"{TITLE}/{TITLE}"], ["| G . . . | Am7 . . . |"]),
                               (["pdftotext", "-layout", self.paper, "-"], ["Capo", "Em7"])):
            said = subprocess.run(program, env=self.environment, check=True, text=True,
                                  capture_output=True).stdout
            if missing := [word for word in words if word not in said]:
                raise AssertionError(f"{missing} not in: {said}")


def main():
    singer = Singer(*sys.argv[1:])
    singer.play_through(
        singer.start,
        singer.import_by_drag_and_drop,
        singer.hear_its_chords,
        singer.correct_a_chord,
        singer.set_a_capo,
        singer.print_it,
        singer.play_along,
        singer.expect_kept)


main()
