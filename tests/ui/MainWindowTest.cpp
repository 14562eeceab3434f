// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/MainWindow.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "model/recorded/SongRecording.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/sound/Guitar.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/ReadOnlyFolder.h"
#include "support/store/StandardStore.h"
#include "tab/layout/ChordGrip.h"
#include "tab/layout/ChordSearch.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/QtRunLoop.h"
#include "ui/dialogs/AlertBox.h"
#include "ui/dialogs/ShapeDialog.h"
#include "ui/dialogs/chords/NameDialog.h"
#include "ui/dialogs/guides/EasyDialog.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/TreeModel.h"
#include "ui/library/TreePanel.h"
#include "ui/menus/EditMenu.h"
#include "ui/sound/PlayerBar.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"
#include "ui/window/JobPanel.h"
#include "ui/window/LogPanel.h"
#include "ui/window/OfferBar.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel::ui {
namespace {

/// The window on a new store, with a recording beside it.
struct MainWindowTest : testing::Test {
  MainWindowTest() {
    QSettings().clear();
    QSettings().setValue("keepRecordings", false);  // asked at the first import
    platform::RunLoop::install(&m_loop);
    test::writeWav(m_file, test::fewChords());
    open();
  }
  ~MainWindowTest() override {
    close();
    platform::RunLoop::install(nullptr);
  }

  void open() {
    if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
    m_window.emplace(m_alert);
    m_window->show();
  }
  /// Answers what is asked while something is heard.
  void close(const QString& answer = "Keep What Was Heard") {
    QTimer asked;
    QObject::connect(&asked, &QTimer::timeout, [&answer] { press(answer); });
    asked.start(10);
    if (m_window) m_window->close();
    if (m_window && m_window->isVisible()) return;
    m_window.reset();
  }
  static void press(const QString& answer) {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    for (auto* button : dialog->findChildren<QPushButton*>())
      if (button->text() == answer) button->click();
  }
  QPushButton* jobButton(const QString& text) {
    QPushButton* last = nullptr;  // that of the newest job
    for (auto* button : m_window->findChild<JobPanel*>()->findChildren<QPushButton*>())
      if (button->text() == text) last = button;
    return last;
  }
  void import() {
    m_window->importFiles({QString::fromStdString(m_file)});
    ASSERT_TRUE(QTest::qWaitFor([] { return ImportDesk::running().empty(); }, 20000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_window->tablature().song() != nullptr; }));
  }
  QAction* action(const QString& text, QMenu* menu = nullptr) {
    const auto actions = menu ? menu->actions() : m_window->menuBar()->actions();
    for (QAction* each : actions) {
      if (each->text().remove('&') == text) return each;
      if (QAction* found = each->menu() ? action(text, each->menu()) : nullptr) return found;
    }
    return nullptr;
  }
  QString log() { return m_window->findChild<LogPanel*>()->toPlainText(); }
  static std::string titles() {
    std::string text;
    for (const auto& album : QBTabMgr::db().albums())
      for (const QBSong* song : album->songs()) text += album->name() + '/' + song->title() + ' ';
    return text;
  }

  const test::ScratchStore m_store{test::ScratchStore::Content::ofFirstStart};
  const test::ScratchFolder& m_folder = m_store.folder();
  const std::string m_file = m_folder.file("Tune.wav");
  QtRunLoop m_loop{[](const std::exception& error) { FAIL() << error.what(); }};
  AlertBox m_alert;
  std::optional<MainWindow> m_window;
};

TEST_F(MainWindowTest, droppedRecordingIsShownArrangedAndFoundAgain) {
  EXPECT_EQ(m_window->windowTitle(), "Workbench ..");
  EXPECT_FALSE(action("Melody")->isEnabled()) << "no song is selected";
  import();
  EXPECT_TRUE(log().endsWith("Song successfully imported."));
  EXPECT_TRUE(action("Melody")->isEnabled());
  EXPECT_FALSE(action("Export All As")->isEnabled()) << "no album is selected";
  action("Melody")->trigger();
  EXPECT_EQ(titles(), "Tune/Tune Tune/Tune(Mld) ");
  EXPECT_EQ(m_window->tree().view().currentIndex().data().toString(), "Tune(Mld)");
  close();
  QBTabMgr::clearDb();
  open();
  m_window->openLastSong();
  ASSERT_NE(m_window->tablature().song(), nullptr);
  EXPECT_EQ(m_window->tablature().song()->title(), "Tune(Mld)");
  EXPECT_EQ(m_window->tree().view().currentIndex().data().toString(), "Tune(Mld)");
}

/// A track of a MIDI file, for a guitar with one note.
std::string midiTrack(char name, char pitch) {
  return std::string("MTrk\0\0\0\x14\0\xFF\x03\x01", 12) + name +
         std::string("\0\xC0\x19\0\x90", 5) + pitch + std::string("\x5A\x60\x80", 3) + pitch +
         std::string("\0\0\xFF\x2F\0", 5);
}

TEST_F(MainWindowTest, droppedTabBecomesASongAndTwoGuitarsAreAskedFor) {
  const std::string tab = m_folder.file("Riff.txt");
  test::writeFile(tab,
                  "e|--------|\nB|1-1-3-3-|\nG|--------|\nD|--------|\nA|--------|\nE|--------|\n");
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(tab))});
  QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  static_cast<QObject&>(*m_window).event(&dropped);
  const auto isImported = [this](int songs) {
    return QTest::qWaitFor(
        [this, songs] { return log().count("Song successfully imported.") == songs; });
  };
  ASSERT_TRUE(isImported(1));
  EXPECT_EQ(titles(), "Riff/Riff ");

  const std::string midi = m_folder.file("two.mid");
  test::writeFile(midi, std::string("MThd\0\0\0\6\0\1\0\2\0\x60", 14) + midiTrack('A', '\x34') +
                            midiTrack('B', '\x40'));
  QStringList tracks;
  QTimer asked;
  QObject::connect(&asked, &QTimer::timeout, [&tracks] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    auto* choice = dialog->findChild<QComboBox*>();
    for (int i = 0; i < choice->count(); ++i) tracks << choice->itemText(i);
    choice->setCurrentIndex(1);
    dialog->accept();
  });
  asked.start(10);
  m_window->importFiles({QString::fromStdString(midi)});
  asked.stop();
  ASSERT_TRUE(isImported(2));
  EXPECT_EQ(tracks, (QStringList{"1 A: 1 notes", "2 B: 1 notes"}));
  EXPECT_TRUE(log().contains("track 2 B is imported; there are also 1 A"));
}

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

TEST_F(MainWindowTest, whereALostRecordingIsIsAskedOnce) {
  import();
  std::filesystem::rename(m_file, m_folder.file("moved.wav"));
  for (int click = 0; click < 2; ++click) action("What Was This?")->trigger();
  EXPECT_EQ(m_window->findChildren<OfferBar*>().size(), 1);
  QTimer::singleShot(0, [this] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(m_folder.file("moved.wav")));
    static_cast<QDialog*>(dialog)->accept();
  });
  m_window->findChild<OfferBar*>()->findChildren<QPushButton*>().front()->click();
  EXPECT_EQ(QBSession::session().activeSong()->recording()->path(), m_folder.file("moved.wav"));
}

TEST_F(MainWindowTest, libraryIsAsWideAsItWasAfterANarrowWindow) {
  m_window->resize(1400, 800);
  QTest::qWait(50);
  auto* library = m_window->findChild<QDockWidget*>("library");
  m_window->resizeDocks({library}, {400}, Qt::Horizontal);
  QTest::qWait(50);
  const int width = library->width();
  m_window->resize(500, 800);
  QTest::qWait(50);
  ASSERT_LT(library->width(), width);
  m_window->resize(1400, 800);
  QTest::qWait(50);
  EXPECT_EQ(library->width(), width);
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

TEST_F(MainWindowTest, songIsHeardAgainAsWhatItWasHeardAs) {
  QSettings().setValue("detection/players", static_cast<int>(Players::automatic));
  close();
  open();
  import();
  EXPECT_TRUE(m_window->statusMessage().startsWith("It sounds like one guitar"))
      << m_window->statusMessage().toStdString();
  const auto hear = [&](const QString& title) {
    QMenu menu;
    m_window->findChild<LibraryActions*>()->fillMenu(menu, *QBSession::session().activeSongNode());
    ASSERT_NE(action(title, &menu), nullptr) << title.toStdString();
    action(title, &menu)->trigger();
    ASSERT_TRUE(QTest::qWaitFor([] { return ImportDesk::running().empty(); }, 20000));
  };
  const auto isBand = [&] { return QBSession::session().activeSong()->recording()->isBand(); };
  EXPECT_FALSE(isBand());
  hear("Hear Again as a Band");
  EXPECT_TRUE(isBand());
  hear("Hear Again");
  EXPECT_TRUE(isBand());
  hear("Hear Again with Melody and Bass");
  EXPECT_TRUE(isBand());
  hear("Hear Again as One Guitar");
  EXPECT_FALSE(isBand());
}

TEST_F(MainWindowTest, recentFilesNameEachFileOnce) {
  const QString folder = m_folder.path().c_str();
  Preferences().addRecentFile(folder + "/Tune.wav");
  Preferences().addRecentFile(folder + "/gone.wav");
  Preferences().addRecentFile(folder + "/./Tune.wav");
  EXPECT_EQ(Preferences().recentFiles(),
            (QStringList{folder + "/./Tune.wav", folder + "/gone.wav"}));
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

TEST_F(MainWindowTest, songMenuSaysWhyASongWithoutChordsIsLeftAlone) {
  QBSong* song = QBTabMgr::db().createAlbum("Practice", false)->createSong("Blues");
  QBSession::session().refreshTree();
  m_window->tree().showSong(song);
  ASSERT_TRUE(action("Melody")->isEnabled());
  action("Melody")->trigger();
  EXPECT_TRUE(m_window->statusMessage().startsWith("Blues: the song has no chords"));
}

TEST_F(MainWindowTest, jobIsDroppedByItsButton) {
  Preferences().setDetection(classicDetection(), {});
  close();
  open();
  m_window->importFiles({QString::fromStdString(m_file)});
  QPushButton* drop = jobButton("Cancel and drop");
  QPushButton* clear = jobButton("Clear Finished Jobs");
  ASSERT_NE(drop, nullptr);
  ASSERT_TRUE(QTest::qWaitFor([&] { return drop->isEnabled(); }));
  drop->click();
  EXPECT_EQ(titles(), "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !drop->isEnabled() && clear->isEnabled(); }));
  m_window->importFiles({QString::fromStdString(m_file)});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !ImportDesk::running().empty(); }));
  deleteAlbum(*QBTabMgr::db().albums().back());
  ASSERT_TRUE(QTest::qWaitFor([] { return ImportDesk::running().empty(); }));
  clear->click();
  drop = jobButton("Cancel and drop");
  ASSERT_NE(drop, nullptr) << "it only rests";
  ASSERT_TRUE(QTest::qWaitFor([&] { return drop->isEnabled(); }));
  drop->click();
  clear->click();
  EXPECT_EQ(jobButton("Cancel and drop"), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !clear->isEnabled(); }));
}

TEST_F(MainWindowTest, startAfterAKillSaysWhatWasRunning) {
  Preferences().setRunningImports({{"/tmp/Waltz, slow.mp3", 7, "Waltz"}});
  QBTabMgr::setStorePath(m_folder.file("Other.sqlite"));
  EXPECT_TRUE(Preferences().runningImports().empty()) << "that is another store";
  QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
  m_window->greet();
  EXPECT_TRUE(log().contains("imported /tmp/Waltz, slow.mp3; import it again."));
  EXPECT_TRUE(Preferences().runningImports().empty());
}

TEST_F(MainWindowTest, closingKeepsWhatAnImportHasHeard) {
  Preferences().setDetection(classicDetection(), {});
  close();
  open();
  newAlbum("Practice");
  m_window->importFiles({QString::fromStdString(m_file)});
  ASSERT_TRUE(QTest::qWaitFor([] { return QBTabMgr::db().context().fetch("QBChord").size() > 3; }));
  const auto undo = m_window->findChild<EditMenu*>()->actions().front();
  undo->trigger();
  EXPECT_TRUE(log().endsWith("Undo New Album"));
  EXPECT_EQ(titles(), "Tune/Tune ");
  undo->trigger();
  EXPECT_TRUE(m_window->statusMessage().startsWith("\"Import WAV File\" still goes on"));
  close("Do Not Quit");
  ASSERT_TRUE(m_window && !ImportDesk::running().empty());
  close("Go On at the Next Start");
  const auto startAgain = [this] {
    QBTabMgr::clearDb();
    open();
    m_window->greet();
  };
  startAgain();
  ASSERT_EQ(ImportDesk::running().size(), 1U) << "it goes on";
  EXPECT_EQ(titles(), "Tune/Tune ") << "where it was";
  ASSERT_TRUE(QTest::qWaitFor([] { return QBTabMgr::db().context().fetch("QBChord").size() > 9; }));
  close("Keep What Was Heard");
  startAgain();
  EXPECT_TRUE(ImportDesk::running().empty());
  EXPECT_EQ(titles(), "Tune/Tune ");
  QBSong* song = QBTabMgr::db().albums().at(0)->songs().at(0);
  EXPECT_TRUE(song->hasTabulature());
  const QModelIndex row = m_window->tree().model().indexOf(song);
  EXPECT_EQ(row.data().toString(), "Tune (not whole)");
}

TEST_F(MainWindowTest, fileWithoutSoundIsSaidInTheStatusBar) {
  const std::string file = m_folder.file("notes.mp3");
  test::writeFile(file, "no sound");
  m_window->importFiles({QString::fromStdString(file)});
  EXPECT_TRUE(m_window->statusMessage().startsWith("notes.mp3 was not imported"));
  EXPECT_TRUE(log().startsWith("EXCEPTION OCCURED IN CONTEXT: importSong"));
  std::string shown;
  for (const std::string& row : m_window->tablature().tabLayout().rows()) shown += row + '\n';
  EXPECT_EQ(shown.find("EXCEPTION"), std::string::npos) << shown;
  EXPECT_TRUE(shown.starts_with(file)) << shown;
  EXPECT_NE(shown.find("choose another sound file"), std::string::npos) << shown;
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

TEST_F(MainWindowTest, whatWentWrongGivesWayToTheSongAgain) {
  import();
  TablatureView& tablature = m_window->tablature();
  ASSERT_TRUE(tablature.song());
  m_window->importFiles({QString::fromStdString(m_folder.file("gone.wav"))});
  EXPECT_FALSE(tablature.song());
  EXPECT_TRUE(m_window->statusMessage().startsWith("gone.wav is not on this computer"));
  QTest::keyClick(&tablature, Qt::Key_Escape);
  EXPECT_TRUE(tablature.song());

  QBSession::session().handleException("test", std::runtime_error("nothing"));
  EXPECT_TRUE(m_window->statusMessage().contains("click a song"));
  QTreeView& tree = m_window->tree().view();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                    tree.visualRect(tree.currentIndex()).center());
  EXPECT_TRUE(tablature.song());
}

TEST_F(MainWindowTest, folderBecomesAnAlbumOfItsRecordings) {
  const QDir folder(QString::fromStdString(m_folder.file("Set")));
  folder.mkpath(".");
  for (const char* name : {"02. B\nside.wav", "01. A.wav"})
    QFile::copy(QString::fromStdString(m_file), folder.filePath(name));
  test::writeFile(m_folder.file("Set/cover.jpg"), "no sound");
  m_window->importFiles({folder.path() + '/'});
  ASSERT_TRUE(QTest::qWaitFor([] { return ImportDesk::running().empty(); }, 20000));
  EXPECT_EQ(titles(), "Set/01. A Set/02. Bside ");
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
