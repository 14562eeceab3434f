// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/rhythm/SongRhythm.h"

#include <random>
#include <set>

#include "analysis/beats/ChordsOnBeats.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBHold.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "rhythm/RhythmReader.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/fingers/PlayedNotes.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using fingering::Note;
using platform::phrase;

Note played(double onset, double seconds, int string, int fret) {
  Note note;
  note.onset = onset;
  note.end = onset + seconds;
  note.string = string;
  note.fret = fret;
  note.pitch = kStandardPitches[static_cast<std::size_t>(string)] + fret;
  note.strength = 1;
  note.amplitude = 0.1F;
  return note;
}

/// Twelve bars of four beats, 100 a minute: a bass note on the first, grips on the others.
std::vector<Note> strummed() {
  std::vector<Note> notes;
  for (int beat = 0; beat < 48; ++beat) {
    const double onset = 1 + 0.6 * beat;
    const int fret = beat / 4 % 2 == 0 ? 0 : 2;
    if (beat % 4 == 0) notes.push_back(played(onset, 1.1, 0, fret + 3));
    if (beat % 4 != 0)
      for (int string = 2; string < 5; ++string) notes.push_back(played(onset, 0.5, string, fret));
  }
  return notes;
}

void expectWholeBars(QBSong& song) {
  song.forgetCaches();
  std::map<const QBMeasure*, int> sums;
  std::map<int, int> ringing;
  int position = 0;
  int tick = 0;
  const QBMeasure* before = nullptr;
  for (const auto& chord : song.allChords()) {
    EXPECT_EQ(chord->position(), ++position);
    ASSERT_NE(chord->measure(), nullptr);
    EXPECT_GT(chord->ticks(), 0);
    if (chord->measure() != before) {
      EXPECT_EQ(sums.count(chord->measure()), 0U) << "its chords are not together";
    }
    before = chord->measure();
    sums[before] += chord->ticks();
    for (const QBTone* tone : chord->hold()->tones()) {
      EXPECT_GT(tone->ticks(), 0);
      EXPECT_LE(std::exchange(ringing[tone->string()], tick + tone->ticks()), tick);
    }
    tick += chord->ticks();
  }
  const auto measures = song.allMeasures();
  for (int bar = 0; const auto& measure : measures) {
    EXPECT_EQ(measure->position(), ++bar);
    const int whole = ticksOfBar(measure->beat(), measure->beattype());
    if (measure == measures.front())
      EXPECT_LE(sums[measure.get()], whole) << "a pick-up";
    else
      EXPECT_EQ(sums[measure.get()], whole) << "bar " << measure->position();
  }
}

struct SongRhythmTest : testing::Test {
  QBSong* songOf(const std::vector<Note>& notes) {
    HeardSound heard;
    heard.notes = notes;
    heard.rhythm = rhythm::rhythmOf(notes);
    heard.seconds = notes.back().end + 1;
    QBSong* song = m_desk.album()->createSong("Song");
    SongRecording* recording = QBTabMgr::db().createRecording("/Song.wav");
    recording->setNotes(rhythm::bytesOf(rhythm::HeardNotes{notes, {}}));
    recording->setRhythm(rhythm::bytesOf(heard.rhythm, {}));
    recording->setSeconds(heard.seconds);
    song->setRecording(recording);
    ChordsOnBeats chords(heard);
    for (std::size_t i = 0; i < chords.size(); ++i) chords.make(song);
    buildTab(*song);
    QBTabMgr::db().save();
    return song;
  }
  static void wish(QBSong& song, const std::function<void(WishedRhythm&)>& wish) {
    SongRhythm(song).change(phrase("UndoAction", "Change Rhythm"), wish);
    EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";
    expectWholeBars(song);
  }
  static const QBChord* edited(QBSong& song) {
    for (const auto& chord : song.allChords())
      if (chord->isEdited()) return chord;
    return nullptr;
  }

  test::SongDesk m_desk;
};

TEST_F(SongRhythmTest, correctionsGiveTheSongOtherBarsAndAreUndoneAtOnce) {
  QBSong& song = *songOf(strummed());
  expectWholeBars(song);
  const double tempo = song.tempo();
  const auto faster = [&] { return song.tempo() / tempo; };
  const auto barBegins = [&](double seconds) {
    return std::ranges::any_of(song.allMeasures(), [&](const auto& measure) {
      return std::abs(*recordedSecondsOf(*measure->allChords().front()) - seconds) < 0.2;
    });
  };
  struct Correction {
    std::function<void(WishedRhythm&)> wish;
    std::function<bool()> holds;
  };
  const Correction corrections[] = {
      {[](auto& wished) { wished.multiplyTempo(2); }, [&] { return std::abs(faster() - 2) < 0.1; }},
      {[](auto& wished) { wished.multiplyTempo(0.5); },
       [&] { return std::abs(faster() - 0.5) < 0.1; }},
      {[](auto& wished) {
         wished.setMetre({3, false});
       },
       [&] { return song.allMeasures().front()->beat() == 3; }},
      {[](auto& wished) {
         wished.setMetre({2, true});
       },
       [&] { return song.allMeasures().front()->beattype() == 8; }},
      {[](auto& wished) { wished.setFeel(rhythm::Feel::swing); }, [&] { return song.isSwung(); }},
      {[](auto& wished) { wished.setBarLine(1 + 0.6 * 9); }, [&] { return barBegins(6.4); }},
      {[](auto& wished) {
         wished.setTaps({1.0, 2.2, 3.4, 4.6, 5.8, 7.0});
       },
       [&] { return std::abs(song.tempo() - 50) < 5; }}};
  const std::string lines = test::linesOf(song);
  const auto bytes = song.recording()->rhythm();
  for (const Correction& correction : corrections) {
    wish(song, correction.wish);
    EXPECT_TRUE(correction.holds()) << &correction - corrections;
    EXPECT_TRUE(QBSession::session().undo());
    EXPECT_EQ(test::linesOf(song), lines);
    EXPECT_EQ(song.recording()->rhythm(), bytes);
  }
}

TEST_F(SongRhythmTest, whatTheUserChangedStaysAndOtherSongsAreLeftAlone) {
  QBSong& song = *songOf(strummed());
  QBSong& copy = *song.clone();
  const std::string others = test::linesOf(copy);
  const auto& chords = song.allChords();
  const auto struck = std::ranges::find_if(chords.begin() + 9, chords.end(), [](const auto& chord) {
    return !chord->hold()->tones().empty();
  });
  const double seconds = *recordedSecondsOf(**struck);
  SongEditor(QBTabMgr::db(), song).setFret(static_cast<int>(struck - chords.begin()), 5, 7);
  wish(song, [](auto& wished) { wished.setMetre({3, false}); });
  const QBChord* kept = edited(song);
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->hold()->findToneByString(5)->fret(), 7);
  EXPECT_NEAR(*recordedSecondsOf(*kept), seconds, 0.2);
  SongRhythm(song).layIntoSlices();
  EXPECT_FALSE(song.isOnBeats());
  EXPECT_TRUE(song.measures().empty());
  EXPECT_NE(edited(song), nullptr);
  SongRhythm(song).layIntoBars();
  expectWholeBars(song);
  EXPECT_EQ(song.allMeasures().front()->beat(), 3) << "what was said of it holds";
  EXPECT_EQ(test::linesOf(copy), others);

  for (const auto& chord : copy.allChords())
    for (int string = 2; string < 5; ++string) chord->hold()->deleteToneOfString(string);
  EXPECT_THROW(SongRhythm(copy).layIntoBars(), EditRefused) << "it would not be an arrangement";
  song.recording()->setNotes({std::byte{9}});
  EXPECT_THROW(SongRhythm{song}, EditRefused);
  song.setRecording(nullptr);
  EXPECT_THROW(SongRhythm{song}, EditRefused);
}

TEST_F(SongRhythmTest, aSongOnOtherStringsSoundsTheSameInOtherBars) {
  QBSong& song = *songOf(strummed());
  const auto pitches = [&song] {
    const PlayedNotes played(song);
    std::set<int> all;
    for (const Note& note : played.all()) all.insert(note.pitch);
    return all;
  };
  const auto heard = pitches();
  QBTuning* tuning = test::addTuning("Other", {38, 43, 50, 55, 57, 62});
  SongFingers(QBTabMgr::db(), song).retune({.tuning = tuning, .capo = 2}, SongFingers::Kept::sound);
  EXPECT_EQ(pitches(), heard);
  wish(song, [](auto& wished) { wished.setMetre({3, false}); });
  EXPECT_EQ(pitches(), heard);
  const PlayedNotes placed(song);
  for (const Note& note : placed.all()) EXPECT_GE(note.fret, 2) << "behind the capo";
  SongFingers(QBTabMgr::db(), song).retune({.capo = 0}, SongFingers::Kept::frets);
  EXPECT_NE(pitches(), heard);
}

TEST_F(SongRhythmTest, barsStayWholeWhateverIsChanged) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&](std::size_t limit) {
      return static_cast<int>(random() % std::max<std::size_t>(limit, 1));
    };
    std::vector<Note> notes;
    double onset = 0.5;
    for (int i = 0; i < 50; ++i) {
      onset += 0.17 * (1 + below(4)) + 0.001 * below(20);
      notes.push_back(played(onset, 0.1 + 0.1 * below(20), below(6), below(8)));
    }
    QBSong& song = *songOf(notes);
    expectWholeBars(song);
    for (int step = 0; step < 40; ++step) {
      SongEditor editor(QBTabMgr::db(), song);
      const auto count = song.allChords().size();
      const int chord = below(count);
      const int act = count == 0 ? 2 : below(10);
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step << ", act " << act);
      try {
        if (act == 0) editor.setDuration(chord, 1 + below(24));
        if (act == 1) editor.moveChord(chord, below(2) == 0 ? 1 : -1);
        if (act == 2) editor.insertChordBefore(chord);
        if (act == 3) editor.insertChordAfter(chord);
        if (act == 4)
          editor.deleteChords(chord, chord + below(std::min<std::size_t>(
                                                 count - static_cast<std::size_t>(chord), 4)));
        if (act == 5)
          editor.pasteAfter(
              chord, CopiedChord::of(song, below(static_cast<std::size_t>(chord) + 1), chord));
        if (act == 6) editor.setFret(chord, below(6), below(12));
        if (act == 7) editor.removeTone(chord, below(6));
        if (act == 8) wish(song, [&](auto& wished) { wished.setMetre({2 + below(3), false}); });
        if (act == 9)
          wish(song, [&](auto& wished) { wished.multiplyTempo(below(2) == 0 ? 2 : 0.5); });
      } catch (const EditRefused&) {
        // There is not always room.
      }
      expectWholeBars(song);
      if (below(4) == 0) {
        QBSession::session().undo();
        expectWholeBars(song);
      }
      if (HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace korvel
