// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include "support/Testing.h"

namespace korvel {
namespace {

using precise::Note;

Note note(double onset, double end, int string, int fret, float strength = 1) {
  const int open = string < 0 ? 38 : kStandardPitches[static_cast<std::size_t>(string)];
  return {onset, end, open + std::max(fret, 0), string, fret, strength};
}

/// Sixteenths of each event, "r" for rests, with the tones as string/fret.
std::string eventsOf(const Score& score) {
  std::string text;
  for (const ScoreEvent& event : score.bars.front().events) {
    text += (event.tones.empty() ? " r" : " ") + std::to_string(event.duration / kUnitsOfSixteenth);
    for (const ScoreTone& tone : event.tones)
      text += ':' + std::to_string(tone.string) + '/' + std::to_string(tone.fret);
  }
  return text;
}

// A bar of 2 1 1 4 (with a rest of 4) 2 2 at several tempi, played with faults of 15 ms.
TEST(NoteScore, findsTheTempoAndTheNoteValues) {
  for (const double tempo : {72.0, 97.3, 120.0, 138.0}) {
    std::mt19937 random(5);
    std::normal_distribution<double> fault(0, 0.015);
    const double sixteenth = 15 / tempo;
    std::vector<Note> notes;
    std::string expected;
    for (int bar = 0; bar < 12; ++bar)
      for (const auto& [at, length] : {std::pair(0, 2), {2, 1}, {3, 1}, {4, 4}, {12, 2}, {14, 2}}) {
        const double onset = 0.7 + (bar * 16 + at) * sixteenth + fault(random);
        notes.push_back(note(onset, onset + length * sixteenth * 0.9, 2, bar));
        expected += ' ' + std::to_string(length) + ":2/" + std::to_string(bar);
        if (at == 4) expected += " r4";
      }
    const NoteScore score(notes, std::nullopt);
    EXPECT_NEAR(score.tempo(), tempo, tempo * 0.002);
    EXPECT_EQ(eventsOf(score.score("", kStandardPitches)), expected) << tempo;
  }
}

TEST(NoteScore, gathersStrumsAndLeavesOutWhatNoStringHas) {
  const std::vector<Note> notes{note(1.00, 1.9, 0, 3),       note(1.04, 1.9, 1, 2),
                                note(1.04, 1.9, 1, 3, 2.0F), note(1.5, 2, -1, -1),
                                note(2.00, 2.01, 5, 0),      note(2.11, 2.2, 4, 1)};
  EXPECT_EQ(eventsOf(NoteScore(notes, 60).score("", kStandardPitches)), " 4:0/3:1/3 1:4/1:5/0")
      << "at 60 the last two are in one sixteenth";
  EXPECT_EQ(eventsOf(NoteScore(notes, 120).score("", kStandardPitches)), " 8:0/3:1/3 1:5/0 1:4/1");
  const NoteScore none({}, std::nullopt);
  EXPECT_EQ(none.tempo(), 120);
  EXPECT_EQ(eventsOf(none.score("", kStandardPitches)), "");
}

TEST(NoteScore, keepsTheExactTimesInMidi) {
  const std::vector<Note> notes{note(0.1234, 3.2101, 0, 3, 0.2F),
                                note(600.4567, 600.4568, -1, -1, 3)};
  const MidiSequence midi = NoteScore(notes, 97.3).midi("Take");
  const double tick = midi.quarterSeconds / midi.division;
  ASSERT_EQ(midi.notes.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    const auto& [start, length, pitch, velocity, release] = midi.notes[i];
    EXPECT_NEAR(static_cast<double>(start) * tick, notes[i].onset, 5e-5);
    EXPECT_NEAR(static_cast<double>(start + length) * tick, notes[i].end, 5e-5);
    EXPECT_EQ(pitch, notes[i].pitch);
    EXPECT_EQ(velocity, i == 0 ? 20 : 96);
  }
}

}  // namespace
}  // namespace korvel
