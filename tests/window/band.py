# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist who sings with a band's recording: its chords are heard, one is corrected, a capo makes
them easy, the page is printed, and the song is played along with.

Usage: band.py PREFIX DRAG_SOURCE RECORDING PICTURES, as scenario.py; what is heard is a band of its own.
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
        write_band(self.recording, ROUND, TIMES)

    def hear_its_chords(self):
        """Nobody has said that a band plays; the song is heard again as one."""
        self.window.press("push button", "No")
        xdotool("mousemove", *centre(self.song_cell(TITLE)), "click", 1, "click", 3)
        self.window.keys("Up", "Return")  # the last entry is "Hear Again as a Band"
        wait_for("the chords of the band", lambda: "chord 1 of 80" in self.place().lower())

    def bars(self):
        """The lines of the page that the bars fold into."""
        printed = subprocess.run([self.tool, "sheet", f"{TITLE}/{TITLE}"], env=self.environment,
                                 check=True, text=True, capture_output=True)
        return [line for line in printed.stdout.splitlines() if "|" in line and " . " in line]

    def correct_a_chord(self):
        """The third bar gets another chord."""
        round_of_chords = "C . . . | G . . . | Am . . . | F . . . :|"
        wait_for(round_of_chords, lambda: any(round_of_chords in line for line in self.bars()))
        self.window.click("text", "Tablature")
        self.window.keys("ctrl+Home", *["Right"] * 8, "ctrl+m")
        self.window.find("label", "Name")
        self.window.type("Am7")
        self.window.keys("Return")
        wait_for("the chord on the page", lambda: any("| Am7 ." in line for line in self.bars()))

    def spoken_page(self):
        return [node.get_name() for node in self.window.all("list item", "")]

    def set_a_capo(self):
        """At fret 5 these chords are G, D, Em and C."""
        self.window.click("page tab", "Page")
        self.picture("b1-page")
        self.window.find("spin button", "Capo").set_current_value(5)
        wait_for("the shapes", lambda: any("sounds as" in name for name in self.spoken_page()))
        self.picture("b2-capo")

    def print_it(self):
        """Without a printer it becomes a document."""
        self.window.keys("ctrl+p")
        self.window.press("push button", "Print")
        paper = self.home / "print.pdf"
        wait_for("the printed page", lambda: paper.read_bytes().rstrip().endswith(b"%%EOF"))

    def play_along(self):
        self.window.find("slider", "Recording or guitar").set_current_value(50)
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.picture("b3-playing")
        self.window.press("push button", "Stop")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))


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
        singer.end)


main()
