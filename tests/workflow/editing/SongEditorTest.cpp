// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEditor.h"

#include "platform/persistence/UndoManager.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "support/store/StoreContents.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using test::Words;

std::string titleOfAction() {
  return QBTabMgr::db().context().undoManager().undoActionName().english();
}

std::string contents() {
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "not saved";
  return test::contentsOf(QBTabMgr::db().context().store());
}

/// "2:x02220=A*4": position, frets, name and duration, "!" when a tone is not as loud as others.
std::string drawn(const QBChord& chord) {
  std::string text = std::to_string(chord.position()) + ':' + test::fretsOf(chord);
  if (chord.harmony()) text += '=' + chord.fullHarmonyName();
  if (chord.duration() != 1) text += '*' + std::to_string(chord.duration());
  for (const QBTone* tone : chord.hold()->tones())
    if (tone->amp() != 1e6) text += '!';
  return text + ' ';
}

SongFingers fingersOf(SongEditor& editor) { return {QBTabMgr::db(), editor.song()}; }

struct SongEditorTest : testing::Test {
  void make(const std::vector<std::string>& chords, int duration = 1) {
    m_song = m_desk.song(chords, duration);
    m_before = contents();
  }
  void save() {
    QBTabMgr::db().save();
    m_before = contents();
  }
  /// Of all chords, the durations in each measure, and the loop.
  std::string state() const {
    std::string text;
    for (const auto& chord : m_song->allChords()) text += drawn(*chord);
    for (const auto& measure : m_song->allMeasures()) {
      text += "| " + std::to_string(measure->position()) + ": ";
      for (const auto& chord : measure->allChords())
        text += std::to_string(chord->duration()) + ' ';
    }
    if (m_song->fromChord()) text += "from " + drawn(*m_song->fromChord());
    if (m_song->toChord()) text += "to " + drawn(*m_song->toChord());
    EXPECT_EQ(m_song->tabulature(), m_song->chords().empty() ? "" : toString(*m_song));
    return text;
  }
  /// Answers the title of the action and the song; what is refused must have changed nothing.
  auto edit(void (*act)(SongEditor&, const Words&)) {
    return [this, act](const Words& words) {
      const std::string before = contents();
      try {
        SongEditor editor(QBTabMgr::db(), *m_song);
        act(editor, words);
      } catch (const std::exception&) {
        EXPECT_EQ(contents(), before);
        throw;
      }
      return (contents() == before ? "nothing" : titleOfAction() + " | " + state());
    };
  }

  test::SongDesk m_desk;
  QBSong* m_song = nullptr;
  std::string m_before;
};

TEST_F(SongEditorTest, fingersAsWritten) {
  using Editor = SongEditor&;
  test::expectScript(
      "editing/fingers.txt",
      {{"song", [&](const Words& words) { return make(words.from(0)), state(); }},
       {"hand", edit([](Editor editor, const Words& words) {
          fingersOf(editor).setHand(
              words.number(0), words.size() > 1 ? std::optional(words.number(1)) : std::nullopt);
        })},
       {"shape", edit([](Editor editor, const Words& words) {
          fingersOf(editor).changeShape(words.number(0), words.number(1));
        })},
       {"tone", edit([](Editor editor, const Words& words) {
          fingersOf(editor).moveTone(words.number(0), words.number(1), words.number(2));
        })},
       {"phrase", edit([](Editor editor, const Words& words) {
          fingersOf(editor).movePhrase(words.number(0), words.number(1), words.number(2));
        })},
       {"anew", edit([](Editor editor, const Words& words) {
          fingersOf(editor).fingerAnew(words.number(0), words.number(1));
        })},
       {"retune", edit([](Editor editor, const Words& words) {
          OpenPitches pitches{};
          for (std::size_t i = 0; i < pitches.size(); ++i) pitches[i] = words.number(i + 1);
          const bool frets = words[0] == "frets";
          fingersOf(editor).retune({.tuning = test::addTuning("Other", pitches)},
                                   frets ? SongFingers::Kept::frets : SongFingers::Kept::sound);
        })},
       {"capo", edit([](Editor editor, const Words& words) {
          const bool frets = words[0] == "frets";
          fingersOf(editor).retune({.capo = words.number(1)},
                                   frets ? SongFingers::Kept::frets : SongFingers::Kept::sound);
        })},
       {"undo", [&](const Words&) { return QBSession::session().undo(), state(); }}});
}

TEST_F(SongEditorTest, editsAsWritten) {
  using Editor = SongEditor&;
  test::expectScript(
      "editing/edits.txt",
      {{"song", [&](const Words& words) { return make(words.from(0)), state(); }},
       {"inMetre",
        [&](const Words& words) {
          make(words.from(3), words.number(2));
          m_song = applyMetric(*m_song, words.number(0), words.number(1));
          save();
          return state();
        }},
       {"quietTone",
        [&](const Words& words) {
          QBHold* hold = m_song->allChords().at(static_cast<std::size_t>(words.number(0)))->hold();
          hold->addTone(words.number(1), words.number(2), 1e5);
          save();
          return state();
        }},
       {"loop",
        [&](const Words& words) {
          for (const int end : {words.number(0), words.number(1)})
            m_song->setChordInLoop(m_song->allChords().at(static_cast<std::size_t>(end)));
          buildTab(*m_song);
          save();
          return "";
        }},
       {"fret", edit([](Editor editor, const Words& words) {
          editor.setFret(words.number(0), words.number(1), words.number(2), words.has("on"));
        })},
       {"remove", edit([](Editor editor, const Words& words) {
          editor.removeTone(words.number(0), words.number(1));
        })},
       {"sound", edit([](Editor editor, const Words& words) {
          editor.setActive(words.number(0), words.number(1), words[2] == "on");
        })},
       {"name", edit([](Editor editor, const Words& words) {
          editor.setChordName(words.number(0), ' ' + words.textFrom(1) + ' ');
        })},
       {"unname",
        edit([](Editor editor, const Words& words) { editor.clearChordName(words.number(0)); })},
       {"duration", edit([](Editor editor, const Words& words) {
          editor.setDuration(words.number(0), words.number(1));
        })},
       {"before", edit([](Editor editor, const Words& words) {
          EXPECT_EQ(editor.insertChordBefore(words.number(0)), words.number(0));
        })},
       {"after", edit([](Editor editor, const Words& words) {
          const int at = editor.song().chords().empty() ? 0 : words.number(0) + 1;
          EXPECT_EQ(editor.insertChordAfter(words.number(0)), at);
        })},
       {"delete", edit([](Editor editor, const Words& words) {
          if (words.size() == 1)
            editor.deleteChord(words.number(0));
          else
            editor.deleteChords(words.number(0), words.number(1));
        })},
       {"undo", [&](const Words&) { return QBSession::session().undo(), state(); }},
       // Back to the song as it was made.
       {"undoAll", [&](const Words&) {
          while (contents() != m_before && QBSession::session().undo()) continue;
          EXPECT_EQ(contents(), m_before);
          return state();
        }}});
}

TEST_F(SongEditorTest, editThatCannotBeSavedHasNotHappened) {
  make({"x02210"});
  auto& store = QBTabMgr::db().context().store();
  store.execute(
      "CREATE TRIGGER full BEFORE UPDATE ON QBSong BEGIN SELECT RAISE(ABORT, 'disk full'); END");
  EXPECT_ANY_THROW(SongEditor(QBTabMgr::db(), *m_song).setFret(0, 4, 2));
  store.execute("DROP TRIGGER full");
  EXPECT_EQ(state(), "1:x02210=Am ");
  const std::string before = std::exchange(m_before, "");
  save();
  EXPECT_EQ(m_before, before);
  EXPECT_EQ(titleOfAction(), "");
}

}  // namespace
}  // namespace korvel
