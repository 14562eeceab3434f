# SPDX-License-Identifier: GPL-3.0-or-later
"""A guitarist's first session with the window, from a recording to an arrangement that is handed on,
and the next start.

Usage: scenario.py PREFIX DRAG_SOURCE RECORDING PICTURES
PREFIX is where Korvel is installed, PICTURES the folder for a screenshot of every state. To be run
on a screen and a session bus of its own; tests/window/run makes both.
"""
import subprocess
import sys

from desk import SCREEN, centre, wait_for, xdotool
from guitarist import TITLE, Guitarist


class Session(Guitarist):
    def arrange(self):
        self.command(TITLE, "Extract Voices", "Melody")
        self.expect_log("Melody extracted.")
        self.command(TITLE, "Apply Rhythm Filters", "4/4")
        self.expect_log("4/4 Metric added")
        self.command(TITLE, "Apply Standard Filters", "Push Down Strings")
        wait_for("three new songs",
                 lambda: len(self.window.all("table cell", TITLE + "(")) == 3)
        self.picture("3-arranged")

    def lead(self, entry):
        """Chooses one of the entries that lead the song's context menu, counted from 1."""
        xdotool("mousemove", *centre(self.song_cell(TITLE)), "click", 1, "click", 3)
        self.window.keys(*["Down"] * entry, "Return")

    def make_easy(self):
        """The melody at the first frets, looked at before it is made, and taken back."""
        self.lead(1)
        self.window.find("label", "Frets")
        self.window.keys("alt+p")
        self.window.type("Melody")
        wait_for("its first line", lambda: "|E" in self.window.text("First line of what comes out"))
        self.picture("3-easy")
        self.window.keys("Return")
        self.expect_log("Easy version made.")
        self.song_cell(TITLE + "(Mld)(Fng)")
        self.window.keys("ctrl+z")
        self.expect_log("Undo Easy Version")

    def practise(self):
        self.lead(4)
        self.window.find("label", "From chord")
        self.window.keys("Return")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.window.press("push button", "Stop")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))

    def play(self):
        """Until the marker has moved, in a loop that clicks have marked, and on beside another
        song."""
        self.select(TITLE)
        self.click_tablature(5, 0.35, "shift")
        last = self.click_tablature(5, 0.5, "shift")
        first = self.click_tablature(5, 0.2, "shift")
        self.window.find("label", f"Loop {first}–{last}")
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.picture("4-playing")
        self.select(TITLE + "(Mld)")
        self.window.find("label", f"Playing {TITLE}")
        self.picture("4-playing-another")
        self.window.press("push button", "Stop")
        wait_for("the player to stop", lambda: self.can_be_pressed("Play"))
        self.click_tablature(5, 0.2)
        self.window.press("push button", "Reset Loop")
        self.window.find("label", "No loop")

    def click_tablature(self, row, share, *held):
        """Clicks into a row of the text, with keys held; which chord stands there."""
        box = self.window.find("text", "Tablature").get_extents(SCREEN)
        keys = [step for key in held for step in ("keydown", key)]
        free = [step for key in held for step in ("keyup", key)]
        xdotool("mousemove", box.x + int(box.width * share), box.y + row * 14, *keys, "click", 1,
                *free)
        return wait_for("a chord under the click", self.chord_at_cursor)

    def edit(self):
        """A fret is put into the first chord, taken back, and put again."""
        self.window.keys("ctrl+Home")
        before = self.place()
        self.window.keys("7")
        wait_for("fret 7", lambda: "fret 7" in self.place())
        wait_for("the focus on it for screen readers", lambda: "fret 7" in self.spoken())
        self.window.keys("ctrl+z")
        wait_for("the fret before", lambda: self.place() == before)
        self.window.keys("ctrl+shift+z")
        wait_for("fret 7 again", lambda: "fret 7" in self.place())
        self.picture("5-edited")

    def export(self):
        for suffix, begin in (("txt", b""), ("musicxml", b"<?xml"), ("mid", b"MThd"),
                              ("wav", b"RIFF")):
            file = self.home / f"handed-on.{suffix}"
            self.window.keys("ctrl+e")
            self.window.find("text", "File name")
            self.window.type(str(file))
            self.window.keys("Return")
            wait_for(file.name, file.exists)
            if not file.read_bytes().startswith(begin):
                raise AssertionError(f"{file.name} is something else")
        self.picture("6-exported")


    def expect_stored(self):
        expected = [f"{TITLE}/{TITLE}{tags}" for tags in ("", "(Mld)", "(4_4)", "(Psh)")]
        if self.songs() != expected:
            raise AssertionError(f"stored are {self.songs()}")
        tones = self.dump(f"{TITLE}/{TITLE}")["chords"][0]["tones"]
        if 7 not in [tone["fret"] for tone in tones]:
            raise AssertionError(f"the edit is not stored: {tones}")

    def expect_as_left(self):
        """The next start: the same songs, the last one open."""
        self.song_cell(TITLE + "(Mld)")
        wait_for("the song that was open", lambda: "chord 1 of" in self.place().lower())
        self.picture("7-started-again")


    def speak(self, language, label, menu):
        """The language changes at once, and the song stays open."""
        self.window.keys("ctrl+comma")
        self.window.find("label", label)
        self.window.keys("alt+" + label[0].lower())
        self.window.type(language)
        self.window.keys("Return")
        self.window.find("menu item", menu)
        self.song_cell(TITLE + "(Mld)")
        self.picture("7-in-" + language)

    def survive_being_killed(self):
        """In the middle of playing, of editing and of an import: the next start has a sound store."""
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.start_after_kill()
        self.window.click("text", "Tablature")
        for fret in "3579":
            self.window.keys(fret)
        self.start_after_kill()
        self.import_without_end("Morning")
        self.start_after_kill()
        self.expect_log(f"Korvel ended while it imported {self.home}/Morning.ogg; import it again.")
        self.picture("8-after-a-kill")

    def edit_beside_an_import(self):
        """What was done before the import is taken back while it goes on, and done again."""
        self.window.click("text", "Tablature")
        self.window.keys("ctrl+Home")
        before = self.place()
        self.window.keys("9")
        wait_for("fret 9", lambda: "fret 9" in self.place())
        self.import_without_end("Evening")
        self.window.keys("ctrl+z")
        wait_for("the fret before", lambda: self.place() == before)
        self.window.keys("ctrl+shift+z")
        wait_for("fret 9 again", lambda: "fret 9" in self.place())
        if "successfully imported." in self.log():
            raise AssertionError("the import was over too early")
        self.picture("9-undone-beside-an-import")

    def quit_in_an_import(self):
        """It goes on at the next start; then what was heard is kept, and a further start waits for
        that."""
        self.answer_quitting("Go On at the Next Start")
        self.window.process.wait(60)
        self.start()
        wait_for("the import to go on", lambda: "(2/3)" in self.log())
        self.answer_quitting("Keep What Was Heard")
        ending = self.window
        self.start()
        ending.process.wait(60)
        self.select("Evening")
        self.window.keys("Right")
        self.select("Evening, not heard to its end")
        wait_for("its tablature", lambda: "chord 1 of" in self.place().lower())
        self.picture("11-after-closing-in-an-import")

    def answer_quitting(self, answer):
        self.window.keys("ctrl+q")
        self.window.find("push button", answer)
        self.picture("10-quitting")
        self.window.press("push button", answer)
        wait_for("the question to go", lambda: self.window.process.poll() is not None
                 or not self.window.has("push button", answer))

    def quit_in_a_recording(self):
        """What was played is kept, and the next start hears it note by note. The recording hears the
        song that plays."""
        self.select(TITLE)
        self.window.click("text", "Tablature")
        self.window.keys("space")
        wait_for("the play position to move", lambda: self.position() > 0)
        self.window.keys("alt+7")
        self.window.press("push button", "Record")
        wait_for("chords", lambda: len(self.window.text("Chords heard").splitlines()) > 5)
        self.answer_quitting("Stop and Keep")
        self.window.process.wait(60)
        takes = [self.tool, "takes"]
        left = subprocess.run(takes, env=self.environment, text=True, capture_output=True).stdout
        if "heard live as" not in left:
            raise AssertionError(f"the sound is gone: {left!r}")
        self.start()
        self.expect_log("Song successfully imported.")
        self.end()
        left = subprocess.run(takes, env=self.environment, text=True, capture_output=True).stdout
        if left:
            raise AssertionError(f"it would be heard again: {left}")

    def delete_by_menu(self):
        """An album that stands above its song, while a screen reader hears of every row."""
        entries = self.window.entries("Album")
        self.window.click("table cell", "Evening", button=3)
        self.window.keys(*["Down"] * (entries.index("Delete") + 1), "Return")
        self.expect_log("Album was successfully deleted.")
        wait_for("the tree without it", lambda: not self.window.has("table cell", "Evening"))

    def import_without_end(self, name):
        long = self.home / f"{name}.ogg"
        subprocess.run(["ffmpeg", "-v", "error", "-stream_loop", "400", "-i", self.recording, "-c",
                        "copy", str(long)], check=True)
        subprocess.run([self.program, str(long)], env=self.environment, check=True)
        wait_for("the import", lambda: "(2/3)" in self.log())

    def start_after_kill(self):
        self.window.kill()
        subprocess.run([self.tool, "check"], env=self.environment, check=True)
        self.start()
        self.song_cell(TITLE)


def main():
    session = Session(*sys.argv[1:])
    session.play_through(
        session.start,
        session.import_by_drag_and_drop,
        session.arrange,
        session.make_easy,
        session.practise,
        session.play,
        session.edit,
        session.export,
        session.end,
        session.expect_stored,
        session.start,
        session.expect_as_left,
        lambda: session.speak("Deutsch", "Language", "Datei"),
        lambda: session.speak("English", "Sprache", "File"),
        session.expect_as_left,
        session.survive_being_killed,
        session.edit_beside_an_import,
        session.quit_in_an_import,
        session.delete_by_menu,
        session.quit_in_a_recording)


main()
