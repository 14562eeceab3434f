// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MainWindowTest.h"

#include <QDockWidget>
#include <QFileDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QTreeView>

#include "support/songs/BeatSong.h"
#include "ui/library/TreePanel.h"
#include "ui/sound/PlayerBar.h"
#include "ui/window/offers/OfferBar.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

TEST_F(MainWindowTest, songIsDrawnIntoTheFileThatItsNameSays) {
  import();
  for (const auto& [name, begin] :
       {std::pair{"x.pdf", "%PDF-"}, {"x.png", "\x89PNG"}, {"x.svg", "<?xml"}}) {
    const QString file = QString::fromStdString(m_folder.file(name));
    QTimer::singleShot(0, [file] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->findChild<QLineEdit*>()->setText(file);
      static_cast<QDialog*>(dialog)->accept();
    });
    action("Export Song ...")->trigger();
    EXPECT_TRUE(test::readFile(file.toStdString()).starts_with(begin)) << name;
  }
}

TEST_F(MainWindowTest, firstStartAsksNothingUntilThereIsASong) {
  m_window->greet();
  EXPECT_EQ(m_window->findChild<OfferBar*>(), nullptr);
  QBTabMgr::db().createAlbum("Practice", false)->createSong("Blues");
  m_window->greet();
  EXPECT_NE(m_window->findChild<OfferBar*>(), nullptr);
}

TEST_F(MainWindowTest, libraryIsAsWideAsItWasAfterANarrowWindow) {
  // However long a turn of the loop takes: what follows a change of sizes are some turns more.
  const auto settle = [] {
    for (int turn = 0; turn < 10; ++turn) QTest::qWait(5);
  };
  m_window->resize(1400, 800);
  settle();
  auto* library = m_window->findChild<QDockWidget*>("library");
  m_window->resizeDocks({library}, {400}, Qt::Horizontal);
  settle();
  const int width = library->width();
  m_window->resize(500, 800);
  settle();
  ASSERT_LT(library->width(), width);
  m_window->resize(1400, 800);
  settle();
  EXPECT_EQ(library->width(), width);
}

TEST_F(MainWindowTest, keysOfTheFileMenuDoNothingWithoutASong) {
  QAction* save = action("Export Song ...");
  emit action("File")->menu()->aboutToShow();
  EXPECT_FALSE(save->isEnabled());
  emit action("File")->menu()->aboutToHide();
  for (QAction* each : {save, action("Print ..."), action("Export as PDF ...")}) {
    EXPECT_TRUE(each->isEnabled()) << "its key may find a song later";
    each->trigger();
    EXPECT_EQ(m_window->statusMessage(), "Choose a song with chords first");
  }
}

TEST_F(MainWindowTest, whatAMouseDoesIsDoneByKeysToo) {
  import();
  m_window->activateWindow();
  auto* log = m_window->findChild<LogPanel*>();
  EXPECT_FALSE(log->isVisible()) << "is behind the jobs, where Tab must not lead";
  action("Log", action("Go To")->menu())->trigger();
  EXPECT_TRUE(log->isVisible());
  EXPECT_EQ(m_window->focusWidget(), log);
  action("Tablature", action("Go To")->menu())->trigger();
  EXPECT_EQ(m_window->focusWidget(), &m_window->tablature());
  m_window->tablature().moveCursor(1, 0);
  action("Set Loop End Here")->trigger();
  EXPECT_TRUE(m_window->tablature().placeText().endsWith("loop begins"));
  action("Reset Loop")->trigger();
  EXPECT_FALSE(m_window->tablature().placeText().contains("loop"));
  action("New Album")->trigger();
  emit action("Edit")->menu()->aboutToShow();
  const auto albums = action("Move Song to Album")->menu()->actions();
  ASSERT_EQ(albums.size(), 1) << "its own is left out";
  albums.front()->trigger();
  EXPECT_EQ(titles(), albums.front()->text().toStdString() + "/Tune ");
}

TEST_F(MainWindowTest, songMenuSaysWhyASongWithoutChordsIsLeftAlone) {
  QBSong* song = QBTabMgr::db().createAlbum("Practice", false)->createSong("Blues");
  QBSession::session().refreshTree();
  m_window->tree().showSong(song);
  ASSERT_TRUE(action("Melody")->isEnabled());
  action("Melody")->trigger();
  EXPECT_TRUE(m_window->statusMessage().startsWith("Blues: the song has no chords"));
}

/// What is open in the tree, by the titles that are seen.
std::string openTitles(const QTreeView& view, const QModelIndex& parent = {}) {
  std::string titles;
  for (int row = 0; row < view.model()->rowCount(parent); ++row) {
    const QModelIndex index = view.model()->index(row, 0, parent);
    if (view.isExpanded(index) && view.model()->hasChildren(index))
      titles += index.data().toString().toStdString() + ' ' + openTitles(view, index);
  }
  return titles;
}

TEST_F(MainWindowTest, libraryIsOpenAsItWasAfterASearchAndAfterAStart) {
  for (const char* name : {"Other", "Practice"})
    QBTabMgr::db().createAlbum(name, false)->createSong("Blues");
  QBSession::session().refreshTree();
  const auto view = [&]() -> QTreeView& { return m_window->tree().view(); };
  EXPECT_EQ(openTitles(view()), "Albums Tunings Instruments ");
  const QAbstractItemModel& shown = *view().model();
  view().setExpanded(shown.index(1, 0, shown.index(0, 0)), true);
  view().setExpanded(shown.index(1, 0), false);
  auto* search = m_window->tree().findChild<QLineEdit*>();
  QTest::keyClicks(search, "blu");
  EXPECT_EQ(openTitles(view()), "Albums Other Practice ");
  search->clear();
  EXPECT_EQ(openTitles(view()), "Albums Practice Instruments ");
  QTest::keyClicks(search, "oth");
  EXPECT_EQ(openTitles(view()), "Albums Other ") << "with its songs, and nothing else";
  action("Newest First")->trigger();
  close();
  open();
  EXPECT_EQ(openTitles(view()), "Albums Practice Instruments ");
  EXPECT_TRUE(action("Newest First")->isChecked());
  EXPECT_EQ(m_window->tree().view().model()->index(0, 0, view().model()->index(0, 0)).data(),
            "Practice");
}

TEST_F(MainWindowTest, songOnBeatsIsPractisedInBeatsAMinuteAndWholeBars) {
  QBSong* song = QBTabMgr::db().createAlbum("Practice", false)->createSong("Waltz");
  test::beatSong(song, "tempo=96 3/4 x02210 q q q | q q q |");
  QBSession::session().setActiveSong(song);
  auto* player = m_window->findChild<PlayerBar*>();
  auto* beats = player->findChild<QSpinBox*>();
  EXPECT_EQ(beats->text(), "96 of 96");
  beats->setValue(80);
  EXPECT_FLOAT_EQ(player->rate(), 80.0F / 96);
  EXPECT_EQ(player->speed(), 83);
  action("Loop Whole Bars")->trigger();
  m_window->tablature().moveCursor(1, 0);
  action("End Loop Here")->trigger();
  EXPECT_EQ(song->fromChord()->position(), 1);
  EXPECT_EQ(song->toChord()->position(), 3);
}

TEST_F(MainWindowTest, searchLeavesTheSongThatIsShown) {
  QBAlbum* album = QBTabMgr::db().createAlbum("Practice", false);
  QBSong* blues = album->createSong("Blues");
  album->createSong("Waltz");
  QBSession::session().refreshTree();
  QBSession::session().setActiveSong(blues);
  auto* search = m_window->tree().findChild<QLineEdit*>();
  QTest::keyClicks(search, "wal");
  EXPECT_EQ(QBSession::session().activeSong(), blues);
  EXPECT_FALSE(QBSession::session().activeSongNode());
  search->clear();
  ASSERT_TRUE(QBSession::session().activeSongNode());
  EXPECT_EQ(QBSession::session().activeSongNode()->song(), blues);
}

}  // namespace
}  // namespace korvel::ui
