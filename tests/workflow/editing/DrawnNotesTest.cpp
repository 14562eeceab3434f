// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/drawn/DrawnNotes.h"

#include "model/songs/QBHold.h"
#include "platform/persistence/UndoManager.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "workflow/playing/ToneRoll.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using Grid = DrawnNotes::Grid;

struct DrawnNotesTest : testing::Test {
  DrawnNotes notes() { return {QBTabMgr::db(), *m_song}; }

  void onBeats(const std::string& written) {
    m_song = test::beatSong(m_desk.album()->createSong("Song"), written);
    QBTabMgr::db().save();
  }

  /// What the roll has, "45@12*6" for six ticks of A from the second beat on, and the chords'
  /// lengths.
  std::string drawn() const {
    std::string text;
    const ToneRoll roll(*m_song);
    for (const auto& tone : roll.tones())
      text += std::to_string(tone.pitch) + "@" + std::to_string(roll.begin(tone.chord)) + "*" +
              std::to_string(tone.steps) + " ";
    text += "|";
    for (const auto& chord : m_song->allChords()) text += " " + std::to_string(chord->ticks());
    return text;
  }

  /// All tones.
  std::vector<ToneIndex> places() const {
    std::vector<ToneIndex> all;
    const ToneRoll roll(*m_song);
    for (const auto& tone : roll.tones()) all.push_back({tone.chord, tone.string});
    return all;
  }

  std::string title() const {
    return QBTabMgr::db().context().undoManager().undoActionName().english();
  }

  test::SongDesk m_desk;
  QBSong* m_song = nullptr;
};

TEST_F(DrawnNotesTest, comeOntoTheGridOfTheBar) {
  onBeats("4/4 x0xxxx q rq rh |");
  notes().add(52, 13.2, 5.4);
  EXPECT_EQ(title(), "Add Tone");
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "not saved";
  EXPECT_EQ(drawn(), "45@0*12 52@12*6 | 12 6 6 24") << "in a rest, which goes on behind it";
  notes().add(57, 0.4, 12);
  EXPECT_EQ(drawn(), "45@0*12 57@0*12 52@12*6 | 12 6 6 24") << "a chord";
  notes().add(64, 25, 4, Grid::free);
  EXPECT_EQ(drawn(), "45@0*12 57@0*12 52@12*6 64@25*4 | 12 6 6 1 4 19");
  EXPECT_TRUE(m_song->allChords()[0]->isEdited());
  QBSession::session().undo();
  QBSession::session().undo();
  QBSession::session().undo();
  EXPECT_EQ(drawn(), "45@0*12 | 12 12 24");
  EXPECT_THROW(notes().add(20, 0, 12), EditRefused) << "no string has it";
  EXPECT_THROW(notes().add(52, 60, 12), EditRefused) << "behind the end";
  EXPECT_EQ(drawn(), "45@0*12 | 12 12 24");
}

TEST_F(DrawnNotesTest, leaveWhatSoundsAroundThem) {
  onBeats("4/4 x0xxxx h rh |");
  notes().add(64, 12, 6);
  EXPECT_EQ(drawn(), "45@0*24 64@12*6 | 12 6 6 24");
  notes().add(47, 6, 6);
  EXPECT_EQ(drawn(), "45@0*6 47@6*6 64@12*6 | 6 6 6 6 24") << "its string is struck again";
}

TEST_F(DrawnNotesTest, severalMoveTogetherInTimeAndPitch) {
  onBeats("4/4 x0xxxx q xx0xxx q x2xxxx h |");
  const std::vector<ToneIndex> both{{0, 1}, {1, 2}};
  notes().move(both, 3.4, 2);
  EXPECT_EQ(title(), "Move Tones");
  EXPECT_EQ(drawn(), "47@3*12 52@15*12 47@24*24 | 3 12 9 24") << "one rings on";
  QBSession::session().undo();
  notes().move(both, 1, 0, Grid::free);
  EXPECT_EQ(drawn(), "45@1*12 50@13*12 47@24*24 | 1 12 11 24");
  QBSession::session().undo();
  EXPECT_EQ(drawn(), "45@0*12 50@12*12 47@24*24 | 12 12 24");
  EXPECT_THROW(notes().move(both, -12, 0), EditRefused) << "before the beginning";
  EXPECT_EQ(drawn(), "45@0*12 50@12*12 47@24*24 | 12 12 24");
}

TEST_F(DrawnNotesTest, lastUntilTheirStringSoundsAgain) {
  onBeats("4/4 x00xxx q rq x2xxxx h |");
  notes().lengthen(std::vector<ToneIndex>{{0, 1}, {0, 2}}, 36);
  EXPECT_EQ(drawn(), "45@0*24 50@0*48 47@24*24 | 12 12 24");
  notes().lengthen(std::vector<ToneIndex>{{0, 1}, {0, 2}}, -46);
  EXPECT_EQ(drawn(), "45@0*3 50@0*3 47@24*24 | 3 9 12 24") << "a sixteenth is left, then a rest";
  notes().remove(std::vector<ToneIndex>{{3, 1}, {0, 1}});
  EXPECT_EQ(drawn(), "50@0*3 | 3 9 36");
}

TEST_F(DrawnNotesTest, inSlicesBeginWithOne) {
  m_song = m_desk.song({"xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx"});
  notes().add(45, 1.7, 2);
  EXPECT_EQ(drawn(), "45@1*2 | 0 0 0 0");
  notes().move(places(), 1, 2);
  EXPECT_EQ(drawn(), "47@2*2 | 0 0 0 0");
  notes().lengthen(places(), -1);
  EXPECT_EQ(drawn(), "47@2*1 | 0 0 0 0");
}

}  // namespace
}  // namespace korvel
