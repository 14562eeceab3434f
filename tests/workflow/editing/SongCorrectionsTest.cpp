// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/doubts/SongCorrections.h"

#include <regex>

#include "model/songs/QBHold.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "support/Testing.h"
#include "support/songs/DoubtedSong.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/doubts/DoubtList.h"
#include "workflow/editing/rhythm/SongRhythm.h"
#include "workflow/playing/RecordedTime.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using test::kFalseNote;
using test::kMissingNote;

void expectFullBars(QBSong& song) {
  std::map<const QBMeasure*, int> sums;
  for (const auto& chord : song.allChords()) sums[chord->measure()] += chord->ticks();
  for (const auto& [measure, ticks] : sums)
    if (measure->position() > 1) {
      EXPECT_EQ(ticks, ticksOfBar(measure->beat(), measure->beattype())) << measure->position();
    }
}

struct SongCorrectionsTest : testing::Test {
  std::size_t find(int pitch) const {
    const SongNotes notes(song);
    const auto found =
        std::ranges::find(notes.all(), pitch, [](const SongNote& each) { return each.note.pitch; });
    return static_cast<std::size_t>(found - notes.all().begin());
  }
  /// "in", "out", with a star when it is locked.
  std::string stateOf(int pitch) const {
    const SongNote note = SongNotes(song)[find(pitch)];
    return std::string(note.isIn ? "in" : "out") + (note.isLocked ? "*" : "");
  }
  std::string doubted() const {
    std::string all;
    const SongNotes notes(song);
    const DoubtList doubts(song, notes);
    for (const DoubtfulPlace& place : doubts.places())
      for (const Doubt& doubt : place.doubts) all += doubt.reason.english() + '\n';
    return all;
  }

  test::SongDesk m_desk;
  QBSong& song = test::doubtedSong(*m_desk.album());
};

TEST_F(SongCorrectionsTest, notesComeAndGoAndAreUndone) {
  const std::string before = test::linesOf(song);
  const auto chords = song.allChords().size();
  EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "in out");
  EXPECT_EQ(doubted(), "B string, fret 1: perhaps no note\nperhaps B2 is missing\n");

  SongCorrections(song).drop(find(kFalseNote));
  EXPECT_EQ(stateOf(kFalseNote), "out*");
  EXPECT_EQ(song.allChords().size(), chords - 1) << "its chord went with it";
  expectFullBars(song);
  SongCorrections(song).accept(find(kMissingNote));
  EXPECT_EQ(stateOf(kMissingNote), "in*");
  const SongNote came = SongNotes(song)[find(kMissingNote)];
  const QBChord& with = *song.allChords().at(static_cast<std::size_t>(came.chord));
  EXPECT_EQ(with.hold()->tones().size(), 4U) << "it is struck with the others";
  EXPECT_EQ(with.hold()->findToneByString(1)->fret(), 2) << "on the string that is free";
  expectFullBars(song);
  EXPECT_EQ(doubted(), "");
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";

  SongRhythm(song).layIntoBars();
  EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "out* in*") << "read anew";
  for (int step = 0; step < 3; ++step) EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(test::linesOf(song), before);
  EXPECT_FALSE(song.hasCorrections());

  SongCorrections(song).accept(find(kMissingNote));
  SongCorrections(song).drop(find(kMissingNote));
  SongCorrections(song).drop(find(kFalseNote));
  SongCorrections(song).accept(find(kFalseNote));
  EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "in* out*");
  EXPECT_EQ(song.allChords().size(), chords) << "between two beats, as it was heard";
  expectFullBars(song);
}

TEST_F(SongCorrectionsTest, otherNotesStayAsTheyAreWhereOneIsDroppedAndTakenAgain) {
  const auto played = [this](bool isInBars) {
    std::string text;
    for (const auto& chord : song.allChords()) {
      std::set<std::pair<int, int>> notes;
      for (const auto& tone : tonesOf(*chord))
        notes.emplace(kStandardPitches.at(static_cast<std::size_t>(tone->string())) + tone->fret(),
                      isInBars ? tone->ticks() : tone->duration());
      for (const auto& [pitch, length] : notes)
        text += std::to_string(pitch) + '*' + std::to_string(length) + ' ';
      text += '|' + std::to_string(chord->ticks()) + '\n';
    }
    return text;
  };
  for (const bool isInBars : {true, false}) {
    if (!isInBars) SongRhythm(song).layIntoSlices();
    const std::string before = played(isInBars);
    SongCorrections(song).drop(find(kFalseNote));
    SongCorrections(song).accept(find(kMissingNote));
    EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "out* in*");
    EXPECT_NE(played(isInBars), before);
    SongCorrections(song).replace(find(kMissingNote), find(kFalseNote));
    EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "in* out*");
    EXPECT_EQ(played(isInBars), before) << isInBars;
    for (int step = 0; step < 3; ++step) EXPECT_TRUE(QBSession::session().undo());
    EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "in out");
    EXPECT_EQ(played(isInBars), before) << isInBars;
  }
}

TEST_F(SongCorrectionsTest, namesFollowTheNotesOfTheirPassages) {
  const auto names = [this] {
    std::string text;
    for (const auto& chord : song.allChords()) text += chord->fullHarmonyName() + ' ';
    return text;
  };
  const std::string before = names();
  std::vector<std::size_t> thirds;
  const SongNotes notes(song);
  for (std::size_t i = 0; i < notes.size(); ++i)
    if (notes[i].note.pitch == 59 || notes[i].note.pitch == 61) thirds.push_back(i);
  SongEditor(QBTabMgr::db(), song).setChordName(0, "Bb");
  SongCorrections(song).correct({}, thirds, {});
  const std::string fifths = std::regex_replace(before, std::regex("G "), "G5 ");
  EXPECT_EQ(names(), "Bb " + fifths.substr(3)) << "but for the name that was set";
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(names(), before);
}

TEST_F(SongCorrectionsTest, allIsDecidedAnewButWhatIsLocked) {
  const auto changes = [&](double sensitivity) {
    const NoteChanges found = SongCorrections(song).preview(sensitivity);
    return std::pair(found.come, found.go);
  };
  using Pair = std::pair<std::size_t, std::size_t>;
  EXPECT_EQ(changes(0.5), Pair(0, 0));
  EXPECT_EQ(changes(0), Pair(0, 1));
  EXPECT_EQ(changes(1), Pair(1, 0));
  EXPECT_EQ(SongCorrections(song).presentSensitivity(), 0.5);
  SongCorrections(song).decideAnew(1);
  EXPECT_GT(SongCorrections(song).presentSensitivity(), 0.5);
  EXPECT_EQ(changes(SongCorrections(song).presentSensitivity()), Pair(0, 0));
  EXPECT_EQ(stateOf(kMissingNote), "in");
  SongCorrections(song).decideAnew(0);
  EXPECT_EQ(stateOf(kFalseNote) + ' ' + stateOf(kMissingNote), "out out");
  SongCorrections(song).decideAnew(0.5);
  EXPECT_FALSE(song.hasCorrections()) << "as it was heard";
  SongCorrections(song).confirm(find(kFalseNote));
  EXPECT_EQ(changes(0), Pair(0, 0));
  EXPECT_EQ(doubted(), "perhaps B2 is missing\n");

  // Heard again, it is decided already.
  QBSong& again = test::doubtedSong(*m_desk.album());
  SongCorrections(song).drop(find(kMissingNote));
  EXPECT_TRUE(SongCorrections::carry(song, again));
  EXPECT_EQ(SongNotes(again)[find(kFalseNote)].isLocked, true);
  EXPECT_EQ(SongNotes(again)[find(kMissingNote)].isLocked, true);
  EXPECT_TRUE(QBSession::session().undo());

  // What is typed by hand is decided, too.
  const int chord = SongNotes(song)[find(kMissingNote)].chord;
  SongEditor(QBTabMgr::db(), song).setFret(chord, 1, 2);
  EXPECT_EQ(stateOf(kMissingNote), "in*");
  EXPECT_EQ(stateOf(kFalseNote), "in*");
  song.setCorrections(platform::Bytes(3));
  EXPECT_EQ(stateOf(kFalseNote), "in") << "damaged bytes say nothing";
  song.setRecording(nullptr);
  EXPECT_THROW(SongCorrections{song}, EditRefused);
}

TEST_F(SongCorrectionsTest, aBarThatIsTakenOutIsMissedInTheRecording) {
  EXPECT_FALSE(firstOutOfStep(song));
  const auto chords = song.allChords();
  const auto isInBar = [](const auto& chord) { return chord->measure()->position() == 3; };
  const auto first = std::ranges::find_if(chords, isInBar) - chords.begin();
  const auto count = std::ranges::count_if(chords, isInBar);
  SongEditor(QBTabMgr::db(), song)
      .deleteChords(static_cast<int>(first), static_cast<int>(first + count - 1));
  EXPECT_EQ(firstOutOfStep(song), static_cast<int>(first) - 1);
}

}  // namespace
}  // namespace korvel
