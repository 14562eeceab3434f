// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEditor.h"

#include "arrange/harmony/HarmonyOfChord.h"
#include "platform/persistence/UndoManager.h"
#include "support/SongDesk.h"
#include "support/StandardStore.h"
#include "support/StoreContents.h"
#include "support/Testing.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using test::fretsOf;
using test::linesOf;

struct SongEditorTest : testing::Test {
  QBSong* song(const std::vector<const char*>& chords, int duration = 1) {
    QBSong* made = m_desk.album()->createSong("Song");
    for (const char* frets : chords) readHarmony(*test::addChord(made, frets, duration));
    buildTab(*made);
    QBTabMgr::db().save();
    return made;
  }
  static std::string title() {
    return QBTabMgr::db().context().undoManager().undoActionName().english();
  }
  static std::string contents() {
    EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "not saved";
    return test::contentsOf(QBTabMgr::db().context().store());
  }
  static std::string frets(QBSong* song) {
    std::string text;
    for (const auto& chord : song->allChords()) text += fretsOf(*chord) + ' ';
    return text;
  }
  /// Positions from the first to the last chord.
  static std::string positions(QBSong* song) {
    std::string text;
    for (const auto& chord : song->allChords()) text += std::to_string(chord->position()) + ' ';
    return text;
  }
  static std::string names(QBSong* song) {
    std::string text;
    for (const auto& chord : song->allChords())
      text += (chord->harmony() ? chord->fullHarmonyName() : "-") + ' ';
    return text;
  }
  /// The durations of the chords in each measure.
  static std::string measures(QBSong* song) {
    std::string text;
    for (const auto& measure : song->allMeasures()) {
      text += std::to_string(measure->position()) + ':';
      for (const auto& chord : measure->allChords())
        text += ' ' + std::to_string(chord->duration());
      text += '\n';
    }
    return text;
  }

  test::SongDesk m_desk;
};

TEST_F(SongEditorTest, tonesAreSetAndRemovedAndNameTheChordAnew) {
  QBSong* song = this->song({"x02210", "320003"});
  SongEditor editor(QBTabMgr::db(), *song);
  editor.setFret(0, 4, 2);
  EXPECT_EQ(title(), "Change Fret");
  EXPECT_EQ(frets(song), "x02220 320003 ");
  EXPECT_EQ(names(song), "A G ");
  EXPECT_EQ(song->tabulature(), toString(*song)) << "drawn anew";
  editor.setFret(0, 0, 24);
  EXPECT_EQ(title(), "Add Tone");
  const QBTone* added = song->allChords()[0]->hold()->findToneByString(0);
  EXPECT_EQ(added->amp(), 1e6) << "as loud as the others";
  editor.removeTone(0, 0);
  EXPECT_EQ(title(), "Remove Tone");
  editor.setActive(0, 1, false);
  EXPECT_EQ(title(), "Deactivate Tone");
  EXPECT_EQ(frets(song), "x-2220 320003 ");
  editor.setFret(0, 1, 0);
  EXPECT_EQ(frets(song), "x02220 320003 ") << "what is typed is to sound";
  song->allChords()[1]->hold()->addTone(0, 5, 1e5);
  QBTabMgr::db().save();
  editor.setFret(1, 0, 3);
  EXPECT_EQ(frets(song), "x02220 320003 ") << "one tone for each string";
  editor.setFret(1, 5, 1);
  editor.setFret(1, 5, 12, true);
  EXPECT_EQ(frets(song), "x02220 32000c ");
  QBSession::session().undo();
  EXPECT_EQ(frets(song), "x02220 320003 ") << "typed in one";
  const std::string before = contents();
  editor.setFret(1, 0, 3);
  editor.removeTone(0, 0);
  editor.setActive(0, 1, true);
  EXPECT_THROW(editor.setFret(0, 6, 0), std::out_of_range);
  EXPECT_THROW(editor.setFret(0, 0, 25), std::out_of_range);
  EXPECT_THROW(editor.setDuration(2, 1), std::out_of_range);
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(title(), "Change Fret") << "nothing happened since";
}

TEST_F(SongEditorTest, nameSetByHandStaysUntilTonesChange) {
  QBSong* song = this->song({"x02210"});
  SongEditor editor(QBTabMgr::db(), *song);
  editor.setChordName(0, " F#m7 ");
  EXPECT_EQ(title(), "Set Chord Name");
  editor.setDuration(0, 4);
  EXPECT_EQ(names(song), "F#m7 ");
  EXPECT_NE(song->tabulature().find("F#m7"), std::string::npos);
  for (const auto& [text, name] :
       std::vector<std::pair<const char*, const char*>>{{"Gb", "F# "},
                                                        {"bb-7", "Bbm7 "},
                                                        {"Cb", "B "},
                                                        {"D\u266Fmin", "Ebm "},
                                                        {"AM7", "Amaj7 "}}) {
    editor.setChordName(0, text);
    EXPECT_EQ(names(song), name);
  }
  for (const char* none : {"", "H7", "C##", "Am7x", "7"})
    EXPECT_THROW(editor.setChordName(0, none), NoChordName) << none;
  editor.clearChordName(0);
  EXPECT_EQ(names(song), "- ");
  editor.setFret(0, 4, 2);
  EXPECT_EQ(names(song), "A ");
}

TEST_F(SongEditorTest, chordsComeAndGoWithoutGaps) {
  QBSong* song = this->song({"0xxxxx", "1xxxxx", "2xxxxx", "3xxxxx", "4xxxxx"});
  SongEditor editor(QBTabMgr::db(), *song);
  const std::string before = contents();
  EXPECT_EQ(editor.insertChordBefore(0), 0);
  EXPECT_EQ(editor.insertChordAfter(5), 6);
  EXPECT_EQ(editor.insertChordAfter(1), 2);
  EXPECT_EQ(title(), "Insert Chord");
  EXPECT_EQ(frets(song), "xxxxxx 0xxxxx xxxxxx 1xxxxx 2xxxxx 3xxxxx 4xxxxx xxxxxx ");
  EXPECT_EQ(positions(song), "1 2 3 4 5 6 7 8 ");
  editor.deleteChords(2, 4);
  EXPECT_EQ(title(), "Delete Chords");
  EXPECT_EQ(frets(song), "xxxxxx 0xxxxx 3xxxxx 4xxxxx xxxxxx ");
  EXPECT_EQ(positions(song), "1 2 3 4 5 ");
  editor.deleteChords(0, 4);
  EXPECT_FALSE(song->hasTabulature());
  EXPECT_THROW(editor.deleteChord(0), std::out_of_range);
  editor.insertChordAfter(0);
  EXPECT_EQ(positions(song), "1 ");
  while (QBSession::session().undo()) continue;
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(frets(song), "0xxxxx 1xxxxx 2xxxxx 3xxxxx 4xxxxx ") << "no order that was kept";
}

TEST_F(SongEditorTest, loopMovesToTheChordsThatAreLeft) {
  const auto loopAfter = [this](int first, int last) {
    QBSong* song = this->song({"0xxxxx", "1xxxxx", "2xxxxx", "3xxxxx", "4xxxxx", "5xxxxx"});
    song->setChordInLoop(song->allChords()[1]);
    song->setChordInLoop(song->allChords()[4]);
    QBTabMgr::db().save();
    SongEditor(QBTabMgr::db(), *song).deleteChords(first, last);
    const auto fretOf = [](const QBChord* chord) {
      return chord ? chord->hold()->tones().at(0)->fret() : -1;
    };
    const std::pair ends(fretOf(song->fromChord()), fretOf(song->toChord()));
    QBSession::session().undo();
    EXPECT_EQ(fretOf(song->fromChord()), 1);
    EXPECT_EQ(fretOf(song->toChord()), 4);
    return ends;
  };
  EXPECT_EQ(loopAfter(2, 3), std::pair(1, 4));
  EXPECT_EQ(loopAfter(0, 1), std::pair(2, 4));
  EXPECT_EQ(loopAfter(4, 5), std::pair(1, 3));
  EXPECT_EQ(loopAfter(1, 3), std::pair(-1, -1)) << "one chord is no loop";
  EXPECT_EQ(loopAfter(0, 5), std::pair(-1, -1));
}

TEST_F(SongEditorTest, measuresStayFull) {
  QBSong* plain = song({"0xxxxx", "1xxxxx", "2xxxxx", "3xxxxx", "4xxxxx", "5xxxxx"}, 4);
  QBSong* song = applyMetric(*plain, 3, 4);
  QBTabMgr::db().save();
  const std::string before = contents();
  SongEditor editor(QBTabMgr::db(), *song);
  EXPECT_EQ(measures(song), "1: 4 4 4\n2: 4 4 4\n");
  editor.setDuration(1, 8);
  EXPECT_EQ(measures(song), "1: 4 8\n2: 4 4 4\n3: 4\n");
  editor.insertChordAfter(3);
  EXPECT_EQ(measures(song), "1: 4 8\n2: 4 4 1\n3: 4 4\n");
  editor.deleteChords(2, 4);
  EXPECT_EQ(measures(song), "1: 4 8\n2: 4 4\n");
  editor.setDuration(0, 16);
  EXPECT_EQ(measures(song), "1: 16\n2: 8 4\n3: 4\n") << "too long for any measure";
  editor.deleteChords(0, 3);
  EXPECT_EQ(measures(song), "1:\n") << "the metre stays";
  editor.insertChordBefore(0);
  editor.setFret(0, 0, 7);
  EXPECT_EQ(measures(song), "1: 1\n");
  while (QBSession::session().undo()) continue;
  EXPECT_EQ(contents(), before);
}

TEST_F(SongEditorTest, editThatCannotBeSavedHasNotHappened) {
  QBSong* song = this->song({"x02210"});
  auto& store = QBTabMgr::db().context().store();
  const std::string before = contents();
  store.execute(
      "CREATE TRIGGER full BEFORE UPDATE ON QBSong BEGIN SELECT RAISE(ABORT, 'disk full'); END");
  EXPECT_ANY_THROW(SongEditor(QBTabMgr::db(), *song).setFret(0, 4, 2));
  store.execute("DROP TRIGGER full");
  EXPECT_EQ(frets(song), "x02210 ");
  QBTabMgr::db().save();
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(title(), "");
}

}  // namespace
}  // namespace korvel
