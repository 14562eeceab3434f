// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/persistence/UndoManager.h"
#include "platform/sqlite/StoreFile.h"
#include "platform/text/PackedText.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"
#include "support/store/StoreContents.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

platform::ManagedContext& context() { return QBTabMgr::db().context(); }

std::string actionName() { return context().undoManager().undoActionName().english(); }

std::string saved() {
  context().save();
  return test::contentsOf(context().store());
}

/// Works on the songs of a store as a restless user does.
class User {
 public:
  explicit User(unsigned seed) : m_random(seed) {}

  int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
  bool oneIn(int count) { return below(count) == 0; }
  void act() {
    QBSong* song = anySong();
    if (!song)
      addSong();
    else if (oneIn(2))
      edit(*song);
    else if (oneIn(3))
      order(*song);
    else
      command(*song);
  }

 private:
  template <class List>
  auto& any(const List& list) {
    return *list.at(static_cast<std::size_t>(below(static_cast<int>(list.size()))));
  }
  QBSong* anySong() {
    std::vector<QBSong*> songs;
    for (const auto& album : QBTabMgr::db().albums())
      for (QBSong* song : album->songs()) songs.push_back(song);
    return songs.empty() ? nullptr : &any(songs);
  }
  void addSong() {
    const platform::UndoGroup group(context().undoManager(), platform::UserText::verbatim("Song"));
    QBAlbum* album = QBTabMgr::db().createAlbum("More", false);
    QBSong* song = album->createSong("Song");
    for (const char* frets : {"x02210", "133211", "x32010", "xxxxxx", "320003", "x02210"})
      readHarmony(*test::addChord(song, frets, 1 + below(4)));
    buildTab(*song);
  }
  void command(QBSong& song) {
    const auto tree = AlbumNode::withSongs(song.album());
    tree->findChild(&song)->perform(m_commands.at(m_random() % m_commands.size()));
  }
  void order(QBSong& song) {
    const auto& albums = QBTabMgr::db().albums();
    switch (below(6)) {
      case 0:
        return static_cast<void>(newAlbum("Album"));
      case 1:
        return deleteAlbum(any(albums));
      case 2:
        return static_cast<void>(cloneAlbum(any(albums)));
      case 3:
        return moveSong(song, any(albums));
      case 4:
        return renameSong(song, std::to_string(m_random()));
      default:
        return song.chords().empty() ? void() : moveLoopEnd(song, chordOf(song));
    }
  }
  void edit(QBSong& song) {
    SongEditor editor(QBTabMgr::db(), song);
    if (song.chords().empty() || oneIn(8)) {
      editor.insertChordBefore(song.chords().empty() ? 0 : chordOf(song));
      return;
    }
    const int chord = chordOf(song);
    switch (below(7)) {
      case 0:
      case 1:
        return editor.setFret(chord, below(6), below(25));
      case 2:
        return editor.removeTone(chord, below(6));
      case 3:
        return editor.setActive(chord, below(6), oneIn(2));
      case 4:
        return editor.setChordName(chord, oneIn(2) ? "Am7" : "Bb");
      case 5:
        return editor.setDuration(chord, 1 + below(16));
      default:
        return editor.deleteChords(chord, std::min(chord + below(2), lastOf(song)));
    }
  }
  static int lastOf(const QBSong& song) { return static_cast<int>(song.chords().size()) - 1; }
  int chordOf(const QBSong& song) { return below(lastOf(song) + 1); }

  const std::vector<std::string> m_commands = test::songCommands();
  std::mt19937 m_random;
};

struct UndoCommandsTest : testing::Test {
  /// What a user sees of all songs, drawn from scratch: nothing that was kept may be out of date.
  static std::string drawn() {
    std::string text;
    for (const auto& album : QBTabMgr::db().albums())
      for (QBSong* song : album->songs()) {
        text += album->name() + '/' + song->title() + '\n' + test::linesOf(*song);
        if (!song->allChords().empty()) text += toString(*song);
        for (const auto& chord : song->allChords())
          text += chord->toKey().value_or("-") + std::to_string(chord->readAllTones().size());
      }
    return text;
  }

  test::SongDesk m_desk;
  QBSession& m_session = QBSession::session();
};

TEST_F(UndoCommandsTest, everythingThatIsDoneIsTakenBackAndDoneAgain) {
  for (unsigned seed = 1; seed <= 6 && !HasFailure(); ++seed) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(seed));
    User user(seed);
    while (m_session.undo()) continue;
    m_desk.song({"x02210", "133211", "xxxxxx", "320003", "x24432"});
    m_desk.reopen();
    std::vector<std::string> files{saved()}, drawings{drawn()};
    std::vector<std::string> names;
    while (names.size() < 25) {
      const std::string name = std::to_string(names.size());
      {
        const platform::UndoGroup group(context().undoManager(),
                                        platform::UserText::verbatim(name));
        user.act();
      }
      if (actionName() != name) continue;  // nothing was to be done
      names.push_back(name);
      if (user.oneIn(2)) context().save();
      drawings.push_back(drawn());
      files.push_back(saved());
    }
    std::size_t level = files.size() - 1;
    while (m_session.undo()) {
      ASSERT_GT(level, 0U);
      --level;
      ASSERT_EQ(drawn(), drawings[level]) << "before " << names[level];
      if (user.oneIn(3)) {
        ASSERT_EQ(saved(), files[level]) << "before " << names[level];
      }
    }
    EXPECT_EQ(level, 0U);
    EXPECT_EQ(saved(), files.front());
    while (m_session.redo()) {
      ++level;
      ASSERT_EQ(drawn(), drawings[level]) << "after " << names[level - 1];
    }
    EXPECT_EQ(level, names.size());
    EXPECT_EQ(saved(), files.back());
    EXPECT_TRUE(platform::StoreFile::problems(context().store()).empty());
  }
}

TEST_F(UndoCommandsTest, loopThatTheSessionTakesAwayIsSaved) {
  QBSong* song = m_desk.song({"x02210", "x02210"});
  m_session.setActiveSong(song);
  setLoop(*song, 0, 1);
  ASSERT_NE(song->toChord(), nullptr);
  m_session.resetLoop();
  EXPECT_EQ(song->fromChord(), nullptr);
  EXPECT_EQ(song->toChord(), nullptr);
  EXPECT_FALSE(context().hasChanges());
  m_session.setActiveSong(nullptr);
}

TEST_F(UndoCommandsTest, loopTakesInTheBarsAtItsEndsWhereItIsAskedTo) {
  QBSong* song = m_desk.song(std::vector<std::string>(6, "x02210"));
  const auto chords = song->allChords();
  for (std::size_t bar = 0; bar < 2; ++bar) {
    QBMeasure* measure = QBTabMgr::db().createMeasure(song, 4, 4);
    for (std::size_t i : {2 * bar, 2 * bar + 1}) measure->addChord(chords.at(i).get());
  }
  const auto loop = [song] {
    return std::pair(song->fromChord()->position(), song->toChord()->position());
  };
  setLoop(*song, 1, 2, LoopEnds::atBars);
  EXPECT_EQ(loop(), std::pair(1, 4));
  endLoop(*song, 0, LoopEnds::atBars);
  EXPECT_EQ(loop(), std::pair(1, 2));
  moveLoopEnd(*song, 5, LoopEnds::atBars);
  EXPECT_EQ(loop(), std::pair(1, 6)) << "a chord in no bar";
  beginLoop(*song, 3, LoopEnds::atBars);
  EXPECT_EQ(loop(), std::pair(3, 6));
}

TEST_F(UndoCommandsTest, actionsAreCalledAsTheirMenuSaysAndLogged) {
  m_desk.song({"x02210", "x02210"});
  const auto tree = AlbumNode::withSongs(m_desk.album());
  const auto nameOf = [&](const char* command) {
    EXPECT_TRUE(tree->children().front()->perform(command));
    return actionName();
  };
  EXPECT_EQ(nameOf("extractMelody"), "Extract Melody");
  EXPECT_EQ(nameOf("extract12_8"), "Apply 12/8");
  EXPECT_EQ(nameOf("removeOptionsFromFourth"), "Remove All from Seven");
  EXPECT_EQ(nameOf("removeFourthOption"), "Remove the Seven");
  EXPECT_EQ(nameOf("transposeDownBy7"), "Transpose Down By A Fifth (7 Half Tones)");
  EXPECT_EQ(nameOf("exportAsFile"), "Transpose Down By A Fifth (7 Half Tones)");
  test::RecordingViews views;
  EXPECT_EQ(m_session.activeSong()->title(), "Song(DwnBy7)");
  m_session.undo();
  EXPECT_EQ(m_session.activeSong(), nullptr);
  m_session.redo();
  m_session.setActiveTreeNode(nullptr);
  EXPECT_EQ(views.log, (std::vector<std::string>{"Undo Transpose Down By A Fifth (7 Half Tones)",
                                                 "Redo Transpose Down By A Fifth (7 Half Tones)"}));
  EXPECT_FALSE(context().hasChanges());
  EXPECT_FALSE(m_session.redo());
}

/// Looks at the store whenever something is logged.
struct Auditor final : OutputView {
  Auditor() { QBSession::session().attach({.output = this}); }
  Auditor(const Auditor&) = delete;
  Auditor& operator=(const Auditor&) = delete;
  ~Auditor() override { QBSession::session().attach({}); }
  void addLogText(const platform::UserText& text) override {
    if (context().hasChanges()) unsaved.push_back(text.english());
  }
  std::vector<std::string> unsaved;
};

TEST_F(UndoCommandsTest, whatTheLogSaysIsSaved) {
  m_desk.song({"x02210", "x02210"});
  const auto tree = AlbumNode::withSongs(m_desk.album());
  const Auditor auditor;
  for (const char* command : {"extractMelody", "copySong", "deleteSong"})
    EXPECT_TRUE(orderOf(*tree->children().front(), *findSongCommand(command)));
  EXPECT_EQ(auditor.unsaved, std::vector<std::string>());
}

TEST_F(UndoCommandsTest, steppedImportIsOneActionBesideOthers) {
  QBSong* other = m_desk.song({"x02210"});
  const std::string before = saved();
  const std::string file = m_desk.folder().file("a.wav");
  test::writeWav(file, test::fewChords());
  LibraryTree tree(QBTabMgr::db(), QBSession::session());
  ImportDesk desk(tree);
  const auto import = desk.importFile(file);
  for (int i = 0; i < 3; ++i) import->nextStep();
  EXPECT_FALSE(m_session.undo()) << "it goes on";
  newAlbum("Other");
  EXPECT_TRUE(m_session.undo());
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !import->isRunning(); });
  EXPECT_EQ(m_session.redo(), true) << "steps of an import are no new action";
  m_session.undo();
  EXPECT_EQ(actionName(), "Import WAV File");
  const std::string after = saved();
  EXPECT_TRUE(m_session.undo());
  EXPECT_EQ(saved(), before) << "the album goes, too";
  EXPECT_EQ(QBTabMgr::db().albums().size(), 1U);
  EXPECT_TRUE(m_session.redo());
  EXPECT_EQ(saved(), after);
  m_session.undo();
  const auto dropped = desk.importFile(file, m_desk.album());
  for (int i = 0; i < 3; ++i) dropped->nextStep();
  dropped->cancelAndDrop();
  EXPECT_EQ(saved(), before);
  EXPECT_EQ(actionName(), "") << "there was nothing";

  newAlbum("Into");
  renameSong(*other, "Renamed");
  const auto later = desk.importFile(file, QBTabMgr::db().albums().back());
  later->nextStep();
  EXPECT_TRUE(m_session.undo());
  EXPECT_EQ(other->title(), "Song");
  EXPECT_FALSE(m_session.undo()) << "the album has to stay for as long as it is imported into";
  EXPECT_EQ(context().undoManager().undoWaitsFor().english(), "Import WAV File");
  later->nextStep();
  EXPECT_TRUE(m_session.redo());
  EXPECT_EQ(other->title(), "Renamed");
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !later->isRunning(); });
  while (m_session.undo()) continue;
  EXPECT_EQ(saved(), before);
}

TEST_F(UndoCommandsTest, importWhoseEndFailsCanBeUndone) {
  const std::string before = saved();
  const std::string file = m_desk.folder().file("a.wav");
  test::writeWav(file, test::fewChords());
  LibraryTree tree(QBTabMgr::db(), QBSession::session());
  const auto import = ImportDesk(tree).importFile(file);
  import->nextStep();
  context().store().execute("PRAGMA query_only = 1");
  EXPECT_ANY_THROW(import->stop());
  context().store().execute("PRAGMA query_only = 0");
  EXPECT_FALSE(import->isRunning());
  EXPECT_TRUE(m_session.undo());
  EXPECT_EQ(saved(), before);
}

/// Each edit of a song keeps the tablature that it had.
TEST_F(UndoCommandsTest, tablatureThatIsKeptForUndoTakesLittle) {
  std::string text;
  for (int line = 0; line < 1000; ++line)
    text += "|E---- -" + std::to_string(line % 13) + "----0--\n";
  const platform::PackedText packed(text);
  EXPECT_LT(packed.bytes(), text.size() / 10);
  EXPECT_EQ(packed.text(), text);
  EXPECT_EQ(platform::PackedText("Waltz").text(), "Waltz");
  EXPECT_EQ(platform::PackedText("").text(), "");
}

}  // namespace
}  // namespace korvel
