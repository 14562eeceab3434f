// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include "support/Testing.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::Quality;

/// What was heard, and a reading of it in 3/4: a beat before the first bar line, beats of half a
/// second, the third one a little longer, so that it is noted where it was heard.
struct NoteScoreTest : testing::Test {
  void add(double onset, double end, int tick, int ticks, const std::vector<int>& frets) {
    reading.events.push_back({{tick, ticks}, {}});
    for (int string = 0; const int fret : frets) {
      if (fret >= 0) {
        reading.events.back().notes.push_back(notes.size());
        reading.notes.push_back({tick, ticks});
        const int open = kStandardPitches[static_cast<std::size_t>(string)];
        notes.push_back({onset, end, open + fret, string, fret, 1});
      }
      ++string;
    }
  }

  NoteScoreTest() {
    reading.beats = {0.7, 1.2, 1.7, 2.3, 2.8};
    reading.firstBar = 1;
    reading.metre = {3, false};
    reading.key = rhythm::Key{9, true};
    reading.chords = {{-12, 0, -1, Quality::major}, {0, 36, 2, Quality::minorSeventh}};
    add(0.95, 1.1, -6, 6, {0});
    add(1.21, 2.75, 0, 12, {-1, -1, 0, 2, 1});
    add(1.7, 2.1, 12, 24, {-1, -1, -1, -1, -1, 1});
    reading.notes[1].ticks = 36;
    notes.push_back({1.21, 1.3, 60, 4, 1, 0.5F});  // weaker on the same string
    notes.push_back({1.21, 1.3, 38, -1, -1, 3});
    for (const std::size_t index : {notes.size() - 2, notes.size() - 1}) {
      reading.events[1].notes.push_back(index);
      reading.notes.push_back({0, 12});
    }
  }

  std::vector<Note> notes;
  rhythm::Reading reading;
};

TEST_F(NoteScoreTest, writesNotesWhereTheyWereRead) {
  const Score score = NoteScore(notes, reading).score("Take", kStandardPitches);
  ASSERT_EQ(score.bars.size(), 2U);
  const auto& [meter, events, lower, pickUp, tempo] = score.bars[1];
  EXPECT_EQ(score.bars[0].pickUp, 12);
  EXPECT_EQ(meter, (Meter{3, 4}));
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0].tones, (std::vector<ScoreTone>{{3, 2, 57}, {4, 1, 60}}));
  EXPECT_EQ(events[0].harmony, (ScoreHarmony{2, "m7"}));
  EXPECT_EQ(events[1].duration, 48);
  ASSERT_EQ(lower.size(), 1U);
  EXPECT_EQ(lower[0].tones, (std::vector<ScoreTone>{{2, 0, 50}}));
  EXPECT_NEAR(score.tempo, 120, 1e-9);
  EXPECT_NEAR(tempo.value_or(0), 112.5, 1e-9) << "more than 3 % slower";
  EXPECT_EQ(score.key, (ScoreKey{9, true}));
  EXPECT_EQ(NoteScore({}, {}).score("", kStandardPitches).bars.size(), 1U);
}

TEST_F(NoteScoreTest, keepsTheExactTimesInMidiOnTheBeatsOfTheReading) {
  const MidiSequence midi = NoteScore(notes, reading).midi("Take");
  ASSERT_EQ(midi.notes.size(), notes.size());
  const auto secondsOf = [&](std::int64_t tick) {
    double seconds = 0;
    MidiTempo now{0, midi.quarterSeconds};
    for (const MidiTempo& next : midi.tempi) {
      if (next.start >= tick) break;
      seconds += static_cast<double>(next.start - now.start) / midi.division * now.quarterSeconds;
      now = next;
    }
    return seconds + static_cast<double>(tick - now.start) / midi.division * now.quarterSeconds;
  };
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const auto& [start, length, pitch, velocity, release] = midi.notes[i];
    EXPECT_NEAR(secondsOf(start), notes[i].onset, 1e-4);
    EXPECT_NEAR(secondsOf(start + length), notes[i].end, 1e-4);
    EXPECT_EQ(pitch, notes[i].pitch);
  }
  EXPECT_EQ(midi.notes.back().velocity, 96);
  EXPECT_EQ(midi.meter, (Meter{3, 4}));
  EXPECT_TRUE(midi.meters.empty()) << "the first bar has two beats of silence and the pick-up";
  EXPECT_NEAR(secondsOf(3 * midi.division), 1.2, 1e-4);
  EXPECT_EQ(NoteScore({}, {}).midi("").notes.size(), 0U);
}

}  // namespace
}  // namespace korvel
