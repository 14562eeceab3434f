// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MainWindowTest.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QTreeView>

#include "model/recorded/SongRecording.h"
#include "ui/desktop/Preferences.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/TreeModel.h"
#include "ui/library/TreePanel.h"
#include "ui/menus/EditMenu.h"
#include "ui/window/offers/OfferBar.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

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

TEST_F(MainWindowTest, textsWithTabsOrChordsOpenWhateverTheyAreCalled) {
  const std::string tab =
      "e|--------|\nB|1-1-3-3-|\nG|--------|\nD|--------|\nA|--------|\nE|--------|\n";
  const std::string chords = "{title: Rain}\n[Am]Rain is [C]falling [G]down\n";
  int songs = 0;
  for (const auto& [name, text] :
       {std::pair{"One.tab", tab}, {"Two.TXT", tab}, {"a.crd", chords}}) {
    test::writeFile(m_folder.file(name), text);
    m_window->importFiles({QString::fromStdString(m_folder.file(name))});
    ++songs;
    ASSERT_TRUE(QTest::qWaitFor([&] {
      return log().count("Song successfully imported.") == songs;
    })) << name;
  }
  for (const char* song : {"One/One ", "Two/Two ", "Rain/Rain "})
    EXPECT_NE(titles().find(song), std::string::npos) << titles();
  EXPECT_EQ(m_window->tablature().song()->title(), "Rain") << "the last one is shown";
  EXPECT_EQ(Preferences().recentFiles().size(), songs);
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

}  // namespace
}  // namespace korvel::ui
