# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist beside the recording: it is heard slowed down in a loop, what is doubtful is corrected,
named and fingered, practised, and all of it is there after the window was killed.

Usage: rehearsal.py PREFIX DRAG_SOURCE RECORDING PICTURES, as scenario.py.
"""
import array
import subprocess
import sys

from desk import text_of, wait_for
from guitarist import TITLE, Guitarist

FULL_SCALE = 32768


class Rehearsal(Guitarist):
    def left(self):
        """How many places are doubtful, by the status bar."""
        labels = self.window.all("label", "Doubtful: ")
        return int(labels[0].get_name().split()[1]) if labels else 0

    def doubted(self):
        place = self.place()
        return place.split("doubtful: ", 1)[1] if "doubtful: " in place else ""

    def loudest(self, seconds):
        """Of what the sound card plays meanwhile; none without a sound server."""
        try:
            heard = subprocess.run(["timeout", str(seconds), "parec", "--device=card.monitor",
                                    "--format=s16le", "--channels=1"], env=self.environment,
                                   capture_output=True).stdout
        except FileNotFoundError:
            return None
        samples = array.array("h", heard[:len(heard) // 2 * 2])
        return max(map(abs, samples), default=0) / FULL_SCALE

    def set_number(self, name, value):
        box = self.window.find("spin button", name)
        box.set_current_value(value)

    def keep_the_recording(self):
        """It has been heard by the time that its user agrees."""
        self.window.press("push button", "Yes")
        wait_for("a copy of it", lambda: list(self.home.glob("data/**/*.flac")))

    def hear_the_recording(self):
        """At half its speed, bars 2 and 3 again and again; the marker goes as slowly."""
        self.window.click("page tab", "Practise")
        self.window.find("slider", "Recording or guitar").set_current_value(0)
        self.set_number("Speed", 50)
        self.set_number("First bar of the loop", 2)
        self.set_number("Last bar of the loop", 3)
        self.window.press("push button", "Loop These")
        self.window.find("label", "Loop ")
        self.window.click("text", "Tablature")
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        if (loudest := self.loudest(1)) is not None and loudest < 0.02:
            raise AssertionError(f"the recording is not heard: {loudest}")
        self.picture("r1-recording")
        self.window.press("push button", "Stop")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))

    def visit_doubts(self):
        """The first is as it should be, the second is dropped, and others with it that were doubted
        beside it only."""
        self.window.click("text", "Tablature")
        self.window.keys("ctrl+Home")
        found = wait_for("doubts", self.left)
        self.window.keys("n")
        wait_for("what is doubted", self.doubted)
        self.picture("r2-doubt")
        self.window.keys("Return")
        wait_for("one doubt less", lambda: self.left() == found - 1)
        self.window.keys("n")
        wait_for("the next doubt", self.doubted)
        self.window.keys("Delete")
        wait_for("two doubts less", lambda: self.left() <= found - 2)

    def take_in_the_roll(self):
        """What was dropped is a hollow candidate there, and is taken after all."""
        roll = self.window.find("text", "Roll")
        roll.grab_focus()
        self.window.keys("Up")
        wait_for("a tone in the roll", lambda: "per cent" in text_of(roll))
        for _ in range(8):
            if "not taken" in text_of(roll):
                break
            before = text_of(roll)
            self.window.keys("Up")
            wait_for("the next tone", lambda: text_of(roll) != before)
        candidate = text_of(roll).split(",")[0]
        self.picture("r3-roll")
        self.window.keys("Return")
        wait_for(f"{candidate} in the song",
                 lambda: text_of(roll) == "" or "not taken" not in text_of(roll))

    def name_and_finger(self):
        """The first chord gets another name; a note of the riff goes to another string, and what is
        around it follows."""
        self.window.click("text", "Tablature")
        self.window.keys("ctrl+Home", "ctrl+m")
        self.window.find("label", "Name")
        self.window.type("Am6")
        self.window.keys("Return")
        wait_for("the name", lambda: "Am6" in self.place())
        self.window.keys(*["Right"] * 15)
        before = self.place()
        self.window.keys("ctrl+j")
        wait_for("the riff on other strings", lambda: self.place() != before)
        self.picture("r4-fingered")

    def practise(self):
        """Slower at first, behind a bar of clicks, without the melody; then both hands are on the
        guitar."""
        self.window.click("page tab", "Practise")
        self.window.press("check box", "Faster and faster")
        self.set_number("Begins at", 25)
        self.window.press("check box", "Count-in")
        self.window.click("combo box", "Nothing")
        self.window.keys("Down", "Return")
        self.window.find("combo box", "Melody")
        self.window.find("label", "Space plays")
        self.window.keys("Up", "space")
        wait_for("the player", lambda: self.can_be_pressed("Stop"))
        before = self.position()
        wait_for("clicks to be heard",
                 lambda: (loudest := self.loudest(1)) is None or loudest >= 0.02)
        if self.position() != before:
            raise AssertionError("the count-in is over at once")
        self.window.keys("Right")
        wait_for("the next bar", lambda: self.position() != before)
        self.picture("r5-practised")
        self.window.keys("space")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))

    def be_killed(self):
        self.left_over = self.left()
        self.window.kill()

    def expect_kept(self):
        """The next start has the corrections, and what was practised."""
        kept = self.dump(f"{TITLE}/{TITLE}")
        self.start()
        wait_for("the song", lambda: "chord 1 of" in self.place().lower())
        self.window.find("label", "Loop ")
        wait_for("the doubts that were left", lambda: self.left() == self.left_over)
        self.window.click("page tab", "Practise")
        speed = self.window.find("spin button", "Speed").get_current_value()
        begin = self.window.find("spin button", "Begins at").get_current_value()
        if (speed, begin) != (55, 25):
            raise AssertionError(f"what was practised was not kept: {speed}, from {begin}")
        self.window.find("combo box", "Melody")
        self.picture("r6-started-again")
        self.end()
        if self.dump(f"{TITLE}/{TITLE}") != kept:
            raise AssertionError("looking at the song has changed it")


def main():
    rehearsal = Rehearsal(*sys.argv[1:])
    rehearsal.play_through(
        rehearsal.start,
        rehearsal.import_by_drag_and_drop,
        rehearsal.keep_the_recording,
        rehearsal.hear_the_recording,
        rehearsal.visit_doubts,
        rehearsal.take_in_the_roll,
        rehearsal.name_and_finger,
        rehearsal.practise,
        rehearsal.be_killed,
        rehearsal.expect_kept)


main()
