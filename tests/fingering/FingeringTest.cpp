// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Fingering.h"

#include "support/Testing.h"

#include "fingering/Events.h"

namespace korvel::fingering {
namespace {

constexpr OpenPitches kDropD{38, 45, 50, 55, 59, 64};
constexpr Position kOpen{Position::Kind::open};
constexpr Position around(int fret) { return {Position::Kind::around, fret}; }

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

/// The shapes that are found for the pitches of the shapes.
std::vector<std::string> refound(const std::vector<std::string>& shapes, const OpenPitches& open,
                                 const FingeringOptions& options = {}, double seconds = 1) {
  Notes all;
  for (const auto& shape : shapes)
    std::ranges::copy(strum(shape, open, 2.0 * static_cast<double>(all.size()), seconds),
                      std::back_inserter(all));
  Fingering(open, options).place(all);
  std::vector<std::string> found;
  std::size_t from = 0;
  for (const auto& shape : shapes) {
    const auto size = static_cast<std::size_t>(6 - std::ranges::count(shape, 'x'));
    found.push_back(drawn(std::span(all).subspan(from, size)));
    from += size;
  }
  return found;
}

Notes line(const std::vector<int>& pitches) {
  Notes notes;
  for (const int pitch : pitches)
    notes.push_back(note(0.3 * static_cast<double>(notes.size()), 0.28, pitch));
  return notes;
}

/// "string:fret" of each note of a melody.
std::string played(const std::vector<int>& pitches, const FingeringOptions& options) {
  Notes notes = line(pitches);
  Fingering(kStandardPitches, options).place(notes);
  std::string text;
  for (const Note& n : notes)
    text += (text.empty() ? "" : " ") + std::to_string(n.string) + ':' + std::to_string(n.fret);
  return text;
}

const std::vector<int> kScaleOfC{48, 50, 52, 53, 55, 57, 59, 60, 62, 64, 65, 67};

TEST(FingeringTest, findsTheShapesThatGuitaristsLearnFirst) {
  const std::vector<std::string> shapes{"x02210", "x32010", "320003", "xx0232", "022100", "133211",
                                        "x24432", "x02020", "020100", "xx0231", "577655", "x35553",
                                        "x32310", "x21202", "xx3210", "x32000", "355433", "xx0212"};
  EXPECT_EQ(refound(shapes, kStandardPitches), shapes);
  EXPECT_EQ(refound(shapes, kStandardPitches, {}, 5.0), shapes) << "each rings into the next two";
  EXPECT_EQ(refound({"000xxx", "222xxx", "555xxx", "x022xx", "000232"}, kDropD),
            (std::vector<std::string>{"000xxx", "222xxx", "555xxx", "x022xx", "000232"}));
  const OpenPitches openG{38, 43, 50, 55, 59, 62};
  EXPECT_EQ(refound({"000000", "555555", "x02010"}, openG),
            (std::vector<std::string>{"000000", "555555", "x02010"}));
  const OpenPitches nashville{52, 57, 62, 67, 59, 64};
  EXPECT_EQ(refound({"x0221x", "xx0232"}, nashville),
            (std::vector<std::string>{"x0221x", "xx0232"}));
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

TEST(FingeringTest, takesAStrumForOneChordInEitherDirection) {
  for (const bool falling : {false, true}) {
    Notes chord = strum("133211", kStandardPitches, 0, 1, 0.02);
    if (falling)
      for (Note& each : chord) each.onset = 0.1 - each.onset;
    EXPECT_EQ(Events(chord).size(), 1U) << falling;
  }
}

TEST(FingeringTest, playsScalesWhereThePositionSays) {
  EXPECT_EQ(played(kScaleOfC, {.position = kOpen}),
            "1:3 2:0 2:2 2:3 3:0 3:2 4:0 4:1 4:3 5:0 5:1 5:3");
  const std::vector<int> minorPentatonic{45, 48, 50, 52, 55, 57, 60, 62, 64, 67, 69, 72};
  EXPECT_EQ(played(minorPentatonic, {.position = around(5)}),
            "0:5 0:8 1:5 1:7 2:5 2:7 3:5 3:7 4:5 4:8 5:5 5:8");
  const std::vector<int> high{69, 71, 73, 74, 76, 78, 80, 81};
  EXPECT_EQ(played(high, {.frets = 19, .position = around(14)}),
            "3:14 3:16 4:14 4:15 4:17 5:14 5:16 5:17");
}

TEST(FingeringTest, leavesTheOpenPositionOnlyForWhatIsBeyondIt) {
  EXPECT_EQ(played({64, 65, 74, 76, 65, 64, 60}, {.position = kOpen}),
            "5:0 5:1 5:10 5:12 5:1 5:0 4:1");
}

TEST(FingeringTest, tellsOpenPositionFromHigherOnesByTheMusic) {
  EXPECT_EQ(played({59, 59, 60, 62, 62, 60, 59, 57, 55, 55, 57, 59, 59, 57, 57}, {}),
            "4:0 4:0 4:1 4:3 4:3 4:1 4:0 3:2 3:0 3:0 3:2 4:0 4:0 3:2 3:2");
  EXPECT_EQ(played(kScaleOfC, {}), "1:3 2:0 2:2 2:3 3:0 3:2 4:0 4:1 4:3 5:0 5:1 5:3");
}

TEST(FingeringTest, staysInOnePlaceWhereTheHandNeedNotMove) {
  // All of it lies under one hand at the eighth fret; lower down the hand would go up and back.
  EXPECT_EQ(played({75, 72, 70, 67, 65, 63, 65, 67, 70, 72, 75, 72, 70, 67, 65, 63, 75}, {}),
            "5:11 5:8 4:11 4:8 3:10 3:8 3:10 4:8 4:11 5:8 5:11 5:8 4:11 4:8 3:10 3:8 5:11");
}

TEST(FingeringTest, capoMovesEverythingUp) {
  std::vector<int> raised = kScaleOfC;
  for (int& pitch : raised) pitch += 5;
  EXPECT_EQ(played(raised, {.capo = 5, .position = kOpen}),
            "1:8 2:5 2:7 2:8 3:5 3:7 4:5 4:6 4:8 5:5 5:6 5:8");
  EXPECT_EQ(played({41, 42, 76, 77}, {.frets = 12, .capo = 2}), "-1:-1 0:2 5:12 -1:-1");
  EXPECT_EQ(refound({"xx2454", "x24432"}, kStandardPitches, {.capo = 2}),
            (std::vector<std::string>{"xx2454", "x24432"}));
}

TEST(FingeringTest, leavesOutWhatTheGuitarHasNot) {
  EXPECT_EQ(played({39, 40, 76, 77, 88, 89}, {.frets = 12}), "-1:-1 0:0 5:12 -1:-1 -1:-1 -1:-1");
  EXPECT_EQ(played({88, 89}, {.frets = 24}), "5:24 -1:-1");
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
