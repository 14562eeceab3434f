// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MainWindowTest.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTreeView>

#include "support/store/FileSizeLimit.h"
#include "support/store/ReadOnlyFolder.h"
#include "tab/layout/ChordGrip.h"
#include "tab/layout/ChordSearch.h"
#include "ui/dialogs/ShapeDialog.h"
#include "ui/dialogs/chords/NameDialog.h"
#include "ui/dialogs/guides/EasyDialog.h"
#include "ui/library/TreePanel.h"
#include "ui/menus/EditMenu.h"
#include "ui/page/PageView.h"
#include "ui/page/SongSheets.h"
#include "ui/views/FretboardView.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel::ui {
namespace {

TEST_F(MainWindowTest, whatTheDiskHasNoRoomForIsTakenBackAndCanBeDoneAgain) {
  import();
  QBSong& song = *m_window->tablature().song();
  const std::string before = test::fretsOf(song);
  const auto tryAll = [&] {
    m_window->tablature().moveCursor(0, 5);
    QTest::keyClicks(&m_window->tablature(), "12");
    action("Set Loop End Here")->trigger();
    action("Melody")->trigger();
  };
  {
    const test::FileSizeLimit full(4096);
    m_window->findChild<EditMenu*>()->actions().front()->trigger();
    EXPECT_TRUE(m_window->statusMessage().contains("look whether the disk is full")) << "no undo";
    tryAll();
    EXPECT_EQ(titles(), "Tune/Tune ");
    EXPECT_EQ(test::fretsOf(song), before);
    EXPECT_EQ(m_window->tablature().song(), &song);
    EXPECT_EQ(song.toChord(), nullptr);
  }
  tryAll();
  EXPECT_EQ(titles(), "Tune/Tune Tune/Tune(Mld) ");
  EXPECT_NE(test::fretsOf(song), before);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";
}

TEST_F(MainWindowTest, storeThatCannotBeWrittenIsShownAndLeftAlone) {
  import();
  close();
  QBTabMgr::clearDb();
  const std::string before = test::readFile(m_store.path());
  {
    const test::ReadOnlyFolder nothingMore(m_folder.path());
    open();
    m_window->greet();
    QBSession::session().setActiveSong(QBTabMgr::db().albums().front()->findSongByName("Tune"));
    EXPECT_TRUE(log().contains("cannot be written: songs can be read"));
    QTest::keyClicks(&m_window->tablature(), "12");
    action("Set Loop End Here")->trigger();
    action("Melody")->trigger();
    action("New Album")->trigger();
    m_window->importFiles({QString::fromStdString(m_file)});
    EXPECT_TRUE(m_window->statusMessage().contains("so nothing can be changed"));
    EXPECT_FALSE(action("Delete Chord")->isEnabled());
    EXPECT_EQ(titles(), "Tune/Tune ");
    EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
    close();
    QBTabMgr::clearDb();
  }
  EXPECT_EQ(test::readFile(m_store.path()), before);
  open();
  action("New Album")->trigger();
  EXPECT_EQ(QBTabMgr::db().albums().size(), 2U) << "changes are possible again";
}

TEST_F(MainWindowTest, tonesAreEditedByKeysAndOnTheFretboardAndUndone) {
  import();
  TablatureView& tablature = m_window->tablature();
  QBSong& song = *tablature.song();
  const std::string before = test::fretsOf(song);
  tablature.moveCursor(0, 5);
  QTest::keyClicks(&tablature, "12");
  EXPECT_EQ(song.allChords().front()->hold()->findToneByString(5)->fret(), 12);
  auto* fretboard = m_window->findChild<FretboardView*>();
  QTest::mouseClick(fretboard, Qt::LeftButton, {}, fretboard->placeOf(5, 12));
  EXPECT_EQ(song.allChords().front()->hold()->findToneByString(5), nullptr) << "was there already";
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";
  const auto undo = m_window->findChild<EditMenu*>()->actions().front();
  undo->trigger();
  EXPECT_TRUE(log().endsWith("Undo Remove Tone"));
  undo->trigger();
  EXPECT_EQ(test::fretsOf(song), before) << "both digits are one edit";
  undo->trigger();
  EXPECT_EQ(tablature.song(), nullptr) << "the import itself was undone";
  EXPECT_EQ(titles(), "");
  m_window->findChild<EditMenu*>()->actions().at(1)->trigger();
  EXPECT_EQ(titles(), "Tune/Tune ");
}

TEST_F(MainWindowTest, loopsAreOneStepOfUndoAndClicksAreNone) {
  import();
  TablatureView& tablature = m_window->tablature();
  const auto undo = m_window->findChild<EditMenu*>()->actions().front();
  const auto loop = [&] { return m_window->findChild<QLabel*>("loop")->text().toStdString(); };
  const auto click = [&](int chord, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(tablature.viewport(), Qt::LeftButton, modifiers,
                      tablature.chordRect(chord).center());
  };
  tablature.moveCursor(0, 5);
  QTest::keyClick(&tablature, Qt::Key_7);
  click(1, {});
  EXPECT_EQ(loop(), "No loop");
  click(1, Qt::ShiftModifier);
  click(2, Qt::ShiftModifier);
  EXPECT_EQ(loop(), "Loop 2–3");
  tablature.moveCursor(0, 5);
  action("Begin Loop Here")->trigger();
  action("End Loop Here")->trigger();
  EXPECT_EQ(loop(), "Loop 1–1");
  undo->trigger();
  EXPECT_EQ(loop(), "No loop");
  EXPECT_TRUE(log().endsWith("Undo Set Loop"));
  undo->trigger();
  EXPECT_TRUE(log().endsWith("Undo Change Fret"));
  for (int i = 0; i < 2; ++i) action("Edit")->menu()->actions().at(1)->trigger();
  EXPECT_EQ(loop(), "Loop 1–1") << "redone";
}

TEST_F(MainWindowTest, chordsAreCorrectedTogetherEachWithOneStepOfUndo) {
  close();
  QSettings().setValue("detection/slices", true);  // in bars what is pasted covers other chords
  open();
  import();
  TablatureView& tablature = m_window->tablature();
  QBSong& song = *tablature.song();
  const std::string before = test::fretsOf(song);
  const auto undo = m_window->findChild<EditMenu*>()->actions().front();
  const auto chord = [&](int index) -> const QBChord& {
    return *song.allChords().at(static_cast<std::size_t>(index));
  };
  tablature.moveCursor(0, 3);
  QTest::keyClick(&tablature, Qt::Key_7);
  const auto free = chord(0).hold()->findToneByString(4);
  if (free) {
    tablature.moveCursor(0, 4);
    QTest::keyClick(&tablature, Qt::Key_Delete);
    tablature.moveCursor(0, 3);
  }
  action("Tone to Higher String")->trigger();
  EXPECT_EQ(chord(0).hold()->findToneByString(3), nullptr);
  EXPECT_EQ(chord(0).hold()->findToneByString(4)->fret(), 3) << "a third higher, less four";
  EXPECT_EQ(tablature.cursorString(), 4);
  while (test::fretsOf(song) != before) undo->trigger();

  tablature.selectChords(1, 2);
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<NameDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->findChild<QListWidget*>()->count(), 5);
    dialog->findChild<QLineEdit*>()->setText("Bm7");
    dialog->accept();
  });
  action("Set Chord Name ...")->trigger();
  EXPECT_EQ(shownName(chord(1)) + shownName(chord(2)), "Bm7Bm7");
  undo->trigger();
  EXPECT_NE(shownName(chord(1)), "Bm7");

  tablature.selectChords(1, 2);
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<ShapeDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit*>()->setText("Dm");
    dialog->findChild<QListWidget*>()->setCurrentRow(0);
    dialog->accept();
  });
  action("Set Chord ...")->trigger();
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(ChordGrip(chord(i)).shorthand(), "xx0231");
    EXPECT_EQ(shownName(chord(i)), "Dm");
  }
  undo->trigger();
  EXPECT_EQ(test::fretsOf(song), before);

  const std::size_t count = song.chords().size();
  tablature.selectChords(0, 1);
  action("Copy")->trigger();
  action("Paste Chords")->trigger();
  ASSERT_GE(song.chords().size(), count) << "written over what was there, in bars";
  EXPECT_EQ(tablature.selection().first, 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(ChordGrip(chord(i)).shorthand(), ChordGrip(chord(i + 2)).shorthand());
    EXPECT_EQ(chord(i + 2).position(), i + 3);
  }
  undo->trigger();
  EXPECT_EQ(test::fretsOf(song), before);
  QApplication::clipboard()->setText("else");
  action("Paste Chords")->trigger();
  EXPECT_TRUE(m_window->statusMessage().startsWith("There are no chords to paste"));
  tablature.selectChords(0, 0);
  QApplication::clipboard()->setText("e|-0-|\nB|-1-|\nG|-2-|\nD|-2-|\nA|-0-|\nE|---|\n");
  action("Paste Chords")->trigger();
  EXPECT_EQ(ChordGrip(chord(1)).shorthand(), "x02210");
  EXPECT_EQ(song.chords().size(), count + 1);
  undo->trigger();
  EXPECT_EQ(test::fretsOf(song), before);
  const QPoint place = tablature.chordRect(2).center();
  QContextMenuEvent asked(QContextMenuEvent::Mouse, place, tablature.mapToGlobal(place));
  QApplication::sendEvent(tablature.viewport(), &asked);
  EXPECT_EQ(tablature.cursorChord(), 2);
  EXPECT_TRUE(action("Edit")->menu()->isVisible());
  action("Edit")->menu()->hide();
}

TEST_F(MainWindowTest, easyVersionIsSeenBeforeItIsMadeAndUndoneInOneStep) {
  import();
  const auto undo = m_window->findChild<EditMenu*>()->actions().front();
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<EasyDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->findChildren<QComboBox*>().front()->setCurrentIndex(2);  // the melody
    const auto* preview = dialog->findChild<QPlainTextEdit*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview->toPlainText().contains("|E"); }));
    EXPECT_EQ(titles(), "Tune/Tune ");
    dialog->accept();
  });
  action("Easy Version ...")->trigger();
  EXPECT_EQ(titles(), "Tune/Tune Tune/Tune(Mld)(Fng) ");
  EXPECT_EQ(m_window->tree().view().currentIndex().data().toString(), "Tune(Mld)(Fng)");
  undo->trigger();
  EXPECT_EQ(titles(), "Tune/Tune ");
}

TEST_F(MainWindowTest, newTitleIsShownAtOnceAndTheOldOneWhenThatIsUndone) {
  QBTabMgr::db().createAlbum("Stage", false)->createSong("Ballad");
  QBTabMgr::db().save();
  import();
  QBSong& song = *m_window->tablature().song();
  QAbstractItemModel& tree = *m_window->tree().view().model();
  const auto found = tree.match(tree.index(0, 0), Qt::DisplayRole, "Tune", -1,
                                Qt::MatchExactly | Qt::MatchRecursive);
  const QImage before = m_window->tablature().viewport()->grab().toImage();
  EXPECT_TRUE(tree.setData(found.last(), "Tango"));
  EXPECT_NE(m_window->tablature().viewport()->grab().toImage(), before);
  m_window->findChild<SongSheets*>()->goToPage();
  const PageView& page = *m_window->findChild<PageView*>();
  EXPECT_TRUE(tree.setData(found.last(), "Ballad"));
  EXPECT_EQ(page.page().title, "Ballad");
  emit m_window->findChild<EditMenu*>()->aboutToShow();
  action("Move Song to Album")->menu()->actions().front()->trigger();
  EXPECT_EQ(song.album()->name(), "Stage");
  EXPECT_NE(song.title(), "Ballad") << "taken there";
  EXPECT_EQ(page.page().title, song.title());
  for (const char* title : {"Ballad", "Tango", "Tune"}) {
    EXPECT_TRUE(QBSession::session().undo());
    EXPECT_EQ(page.page().title, title);
    EXPECT_EQ(song.title(), title);
    EXPECT_EQ(m_window->tablature().song(), &song);
  }
}

TEST_F(MainWindowTest, severalSongsAreDeletedAtOnce) {
  QBAlbum* album = QBTabMgr::db().createAlbum("Practice", false);
  for (const char* title : {"Blues", "Tango", "Waltz"}) album->createSong(title);
  QBSession::session().refreshTree();
  QTreeView& view = m_window->tree().view();
  view.expandAll();
  const auto select = [&](const char* title, QItemSelectionModel::SelectionFlag how) {
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, title, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    view.selectionModel()->setCurrentIndex(found.value(0), how);
  };
  select("Blues", QItemSelectionModel::ClearAndSelect);
  select("Waltz", QItemSelectionModel::Select);
  QTest::keyClick(&view, Qt::Key_Delete);
  EXPECT_EQ(titles(), "Practice/Tango ");
  m_window->findChild<EditMenu*>()->actions().front()->trigger();
  EXPECT_EQ(titles(), "Practice/Blues Practice/Tango Practice/Waltz ");
}

TEST_F(MainWindowTest, albumIsDeletedWithSongsThatAreSelectedBesideIt) {
  QBAlbum* album = QBTabMgr::db().createAlbum("Practice", false);
  for (const char* title : {"Blues", "Tango"}) album->createSong(title);
  QBTabMgr::db().createAlbum("Stage", false)->createSong("Waltz");
  QBSession::session().refreshTree();
  QBSession::session().setActiveSong(album->findSongByName("Blues"));
  QTreeView& view = m_window->tree().view();
  view.expandAll();
  view.selectionModel()->clearSelection();
  for (const char* title : {"Practice", "Blues", "Waltz"}) {
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, title, 1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
    view.selectionModel()->select(found.value(0), QItemSelectionModel::Select);
  }
  QTest::keyClick(&view, Qt::Key_Delete);
  EXPECT_EQ(titles(), "");
  EXPECT_EQ(m_window->tablature().song(), nullptr);
  EXPECT_EQ(m_window->statusMessage(), "") << log().toStdString();
  m_window->findChild<EditMenu*>()->actions().front()->trigger();
  EXPECT_EQ(titles(), "Practice/Blues Practice/Tango Stage/Waltz ");
}

TEST_F(MainWindowTest, deletedSongIsNotShownAnyMore) {
  import();
  m_window->tablature().moveCursor(0, 5);
  {
    const SongInWork recorded(m_window->tablature().song(), SongInWork::Filler::recording);
    QTest::keyClick(&m_window->tree().view(), Qt::Key_Delete);
    EXPECT_TRUE(m_window->statusMessage().startsWith("Tune: is being recorded"));
  }
  action("Delete")->trigger();
  EXPECT_EQ(m_window->tablature().song(), nullptr);
  QTest::keyClicks(&m_window->tablature(), "7");
  action("Undo Delete")->trigger();
  EXPECT_EQ(titles(), "Tune/Tune ");
}

TEST_F(MainWindowTest, songWithoutChordsGetsOneAgain) {
  QBSong* song = QBTabMgr::db().createAlbum("Practice", false)->createSong("Blues");
  QBSession::session().setActiveSong(song);
  action("Insert Chord After")->trigger();
  ASSERT_EQ(song->chords().size(), 1U);
  QTest::keyClicks(&m_window->tablature(), "7");
  EXPECT_EQ(test::fretsOf(*song), "xxxxx7 ") << "the cursor is on the new chord";
  action("Delete Chord")->trigger();
  EXPECT_TRUE(song->chords().empty());
  action("Insert Chord Before")->trigger();
  EXPECT_EQ(song->chords().size(), 1U);
}

}  // namespace
}  // namespace korvel::ui
