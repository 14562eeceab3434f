// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/NoteScore.h"

#include "analysis/beats/ChordsOnBeats.h"
#include "export/SongMidi.h"
#include "export/score/ScoreWriter.h"
#include "export/score/SongScore.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

using fingering::Note;
using rhythm::Feel;
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

TEST_F(NoteScoreTest, writesWhatASongOfTheNotesIsExportedAs) {
  const test::StandardStore store;
  QBTabMgr::db().createHarmony("m7", 1);
  QBTabMgr::db().loadHarmonies();
  HeardSound heard;
  heard.notes = notes;
  for (const auto& [metre, feel, shift] : {std::tuple{rhythm::Metre{3, false}, Feel::straight, 0},
                                           {rhythm::Metre{2, true}, Feel::swing, 2},
                                           {rhythm::Metre{4, false}, Feel::swing, 3}}) {
    heard.rhythm.reading = reading;
    heard.rhythm.reading.metre = metre;
    heard.rhythm.reading.feel = feel;
    heard.rhythm.reading.swingRatio = 0.6;
    heard.rhythm.reading.events.front().place.tick += shift;
    QBSong* song = store.song("Take");
    ChordsOnBeats supply(heard);
    for (std::size_t made = 0; made < supply.size(); ++made) supply.make(song);
    const NoteScore score(notes, heard.rhythm.reading, kStandardPitches);
    EXPECT_EQ(ScoreWriter(score.score("Take")).write(), ScoreWriter(scoreOf(*song)).write());
    EXPECT_EQ(midiFile(score.midi("Take")), midiFile(midiOf(*song)));
    EXPECT_EQ(score.score("").bars.at(1).events.at(0).harmony, (ScoreHarmony{2, "m7"}));
  }
  const rhythm::Reading nothing;
  const NoteScore silence({}, nothing, kStandardPitches);
  EXPECT_EQ(silence.score("").bars.size(), 1U);
  EXPECT_EQ(silence.midi("").notes.size(), 0U);
}

TEST_F(NoteScoreTest, keepsTheHeardTimesInMidiOnTheBeatsOfTheReading) {
  const MidiSequence midi = NoteScore(notes, reading, kStandardPitches).heardMidi("Take");
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
  EXPECT_EQ(NoteScore({}, {}, kStandardPitches).heardMidi("").notes.size(), 0U);
}

}  // namespace
}  // namespace korvel
