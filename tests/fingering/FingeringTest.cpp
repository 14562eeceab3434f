// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Fingering.h"

#include "support/Script.h"
#include "support/Testing.h"

#include "fingering/Alternatives.h"
#include "fingering/Events.h"

namespace korvel::fingering {
namespace {

constexpr OpenPitches kDropD{38, 45, 50, 55, 59, 64};
using Notes = std::vector<Note>;

Note note(double onset, double seconds, int pitch) {
  return {.onset = onset, .end = onset + seconds, .pitch = pitch, .strength = 1};
}

/// A chord drawn as guitarists do, lowest string first, strummed from there.
Notes strum(const std::string& shape, const OpenPitches& open, double at, double seconds = 1,
            double perString = 0.015) {
  Notes notes;
  for (std::size_t s = 0; s < shape.size(); ++s)
    if (shape[s] != 'x') {
      notes.push_back(note(at, seconds, open[s] + shape[s] - '0'));
      at += perString;
    }
  return notes;
}

std::string drawn(std::span<const Note> notes) {
  std::string shape(kStrings, 'x');
  for (const Note& n : notes)
    if (n.string >= 0)
      shape.at(static_cast<std::size_t>(n.string)) = static_cast<char>('0' + n.fret);
  return shape;
}

/// "capo 2 frets 19 position 5 seconds 5 strings 38,45,..." in front of a colon; position 0 is the
/// open one. "on 4 0" and "near 7 2.1" may follow: of what is settled, the string of a note and the
/// position from a time on.
struct Task {
  explicit Task(const test::Words& words) {
    for (; words[at] != ":"; at += 2) {
      const std::string name = words[at];
      if (name == "on") {
        settled.strings.resize(words.size(), Settled::kAnyString);
        settled.strings.at(static_cast<std::size_t>(words.number(at + 1))) = words.number(at + 2);
        ++at;
      } else if (name == "near") {
        settled.positions.push_back(
            {words.real(at + 2), {Position::Kind::around, words.number(at + 1)}});
        ++at;
      } else if (name == "strings") {
        std::istringstream pitches(words[at + 1]);
        for (int& pitch : open) (pitches >> pitch).ignore();
      } else if (name == "position") {
        const int fret = words.number(at + 1);
        options.position =
            fret == 0 ? Position{Position::Kind::open} : Position{Position::Kind::around, fret};
      } else {
        (name == "capo"    ? options.capo
         : name == "frets" ? options.frets
                           : seconds) = words.number(at + 1);
      }
    }
    ++at;
  }

  OpenPitches open = kStandardPitches;
  FingeringOptions options;
  Settled settled;
  int seconds = 1;
  std::size_t at = 0;
};

/// The shapes that are found for the pitches of the shapes, "same" when they are the same.
std::string refound(const test::Words& words) {
  const Task task(words);
  Notes all;
  for (const auto& shape : words.from(task.at))
    std::ranges::copy(strum(shape, task.open, 2.0 * static_cast<double>(all.size()), task.seconds),
                      std::back_inserter(all));
  Fingering(task.open, task.options).place(all, task.settled);
  std::string found;
  std::size_t from = 0;
  for (const auto& shape : words.from(task.at)) {
    const auto size = static_cast<std::size_t>(6 - std::ranges::count(shape, 'x'));
    found += (found.empty() ? "" : " ") + drawn(std::span(all).subspan(from, size));
    from += size;
  }
  return found == words.textFrom(task.at) ? "same" : found;
}

Notes melody(const test::Words& words, std::size_t at) {
  Notes notes;
  for (const auto& pitch : words.from(at))
    notes.push_back(note(0.3 * static_cast<double>(notes.size()), 0.28, std::stoi(pitch)));
  return notes;
}

std::string written(const Notes& notes) {
  std::string text;
  for (const Note& n : notes) text += std::to_string(n.string) + ':' + std::to_string(n.fret) + ' ';
  return text;
}

/// "string:fret" of each note of a melody.
std::string played(const test::Words& words) {
  const Task task(words);
  Notes notes = melody(words, task.at);
  Fingering(task.open, task.options).place(notes, task.settled);
  return written(notes);
}

/// The same for each way to play it that differs, a line each.
std::string otherwise(const test::Words& words) {
  std::string lines;
  for (const Notes& notes : alternatives(kStandardPitches, {}, melody(words, 0)))
    lines += written(notes) + '\n';
  return lines;
}

/// The first shapes for the pitches of one.
std::string shapesFor(const test::Words& words) {
  std::vector<int> pitches;
  for (const Note& n : strum(words[0], kStandardPitches, 0)) pitches.push_back(n.pitch);
  std::string text;
  for (const Grip& grip : gripsByEase(kStandardPitches, 15, pitches)) {
    for (const int fret : grip.fret)
      text +=
          fret == Grip::kNone ? 'x' : static_cast<char>(fret < 10 ? '0' + fret : 'a' + fret - 10);
    text += ' ';
  }
  return text;
}

TEST(FingeringTest, placesAsWritten) {
  test::expectScript(
      "fingering/places.txt",
      {{"shapes", &refound}, {"line", &played}, {"otherwise", &otherwise}, {"grips", &shapesFor}});
}

TEST(FingeringTest, leavesADoubtfulNoteOfAChordThatNoHandCouldPlay) {
  // An octave that is not there, heard in a slow strum, takes the string of the G.
  Notes chord = strum("x02020", kStandardPitches, 0, 2, 0.025);
  Note octave = note(0.02, 0.6, 57);
  octave.probability = 0.6F;
  chord.push_back(octave);
  Fingering(kStandardPitches, {}).place(chord);
  EXPECT_EQ(chord.back().string, -1);
  EXPECT_EQ(drawn(chord), "x02020");
}

/// One that is struck just after another must not silence it, and is heard elsewhere if it can be.
TEST(FingeringTest, letsNoDoubtfulNoteTakeTheStringOfASurerOne) {
  Notes chord = strum("x32010", kStandardPitches, 0, 2, 0.02);
  Note late = note(0.13, 1.5, 49);
  late.probability = 0.6F;
  chord.push_back(late);
  Notes sure = chord;
  sure.back().probability = 0.9F;
  Fingering(kStandardPitches, {}).place(chord);
  EXPECT_EQ(drawn(chord), "x32010");
  EXPECT_GT(chord[0].end, 1);
  EXPECT_EQ(chord.back().string, -1);
  Fingering(kStandardPitches, {}).place(sure);
  EXPECT_LT(sure[0].end, 0.2);
}

/// One that is hardly more than an overtone makes no chord of a note of a melody.
TEST(FingeringTest, playsAMelodyAsIfADoubtfulOctaveWereNotThere) {
  Notes plain;
  for (const int pitch : {67, 69, 71, 72, 74, 76, 74, 72, 71, 69, 67})
    plain.push_back(note(0.3 * static_cast<double>(plain.size()), 0.28, pitch));
  Notes notes = plain;
  for (const std::size_t i : {std::size_t{2}, std::size_t{3}, std::size_t{7}}) {
    notes.push_back(note(plain[i].onset + 0.01, 0.1, plain[i].pitch + 12));
    notes.back().probability = 0.55F;
  }
  Fingering(kStandardPitches, {}).place(plain);
  Fingering(kStandardPitches, {}).place(notes);
  for (std::size_t i = 0; i < plain.size(); ++i) EXPECT_EQ(notes[i].string, plain[i].string) << i;
}

TEST(FingeringTest, takesAStrumForOneChordInEitherDirection) {
  for (const bool falling : {false, true}) {
    Notes chord = strum("133211", kStandardPitches, 0, 1, 0.02);
    if (falling)
      for (Note& each : chord) each.onset = 0.1 - each.onset;
    EXPECT_EQ(Events(chord).size(), 1U) << falling;
  }
}

TEST(FingeringTest, leavesOutTheFaintestOfSevenNotes) {
  Notes seven = strum("022100", kStandardPitches, 0);
  for (Note& n : seven) n.onset = 0;
  seven.insert(seven.begin() + 2, note(0.001, 1, 61));
  seven[2].strength = 0.1F;
  Fingering(kStandardPitches, {}).place(seven);
  EXPECT_EQ(seven[2].string, -1);
  EXPECT_EQ(drawn(seven), "022100");
  Notes none;
  Fingering(kStandardPitches, {}).place(none);
}

/// Whatever the notes are, what is said of them can be played.
TEST(FingeringTest, keepsEveryStringToOneNoteAtATime) {
  std::mt19937 random(7);
  Notes notes;
  for (int i = 0; i < 3000; ++i)
    notes.push_back(note(static_cast<double>(random() % 600000) / 1000,
                         0.05 + static_cast<double>(random() % 2000) / 1000,
                         39 + static_cast<int>(random() % 41)));
  Notes shuffled = notes;
  std::ranges::sort(shuffled, {}, &Note::onset);
  const FingeringOptions options{.frets = 15, .capo = 1};
  Fingering(kDropD, options).place(notes);
  Fingering(kDropD, options).place(shuffled);
  std::ranges::stable_sort(notes, {}, &Note::onset);
  std::array<double, kStrings> free{};
  std::size_t left = 0, asShuffled = 0;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const Note& n = notes[i];
    if (n.string == shuffled[i].string) ++asShuffled;
    if (n.string < 0) {
      EXPECT_EQ(n.fret, -1);
      ++left;
      continue;
    }
    const auto s = static_cast<std::size_t>(n.string);
    EXPECT_EQ(n.fret, n.pitch - kDropD.at(s));
    EXPECT_TRUE(n.fret >= options.capo && n.fret <= options.frets);
    EXPECT_LE(free.at(s), n.onset);
    EXPECT_LE(n.onset, n.end);
    free.at(s) = n.end;
  }
  EXPECT_LT(left, notes.size() / 30) << "few start so close that strings or fingers lack";
  EXPECT_GT(asShuffled, notes.size() * 99 / 100) << "only equal onsets may differ";
}

}  // namespace
}  // namespace korvel::fingering
