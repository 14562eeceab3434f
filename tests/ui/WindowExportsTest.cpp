// SPDX-License-Identifier: GPL-3.0-or-later
// What a user chooses and types into the dialogs of files, and which files there are then.

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "model/instruments/QBInstrument.h"
#include "support/songs/BeatSong.h"
#include "tab/text/SongDrawing.h"
#include "ui/MainWindowTest.h"
#include "ui/desktop/Preferences.h"
#include "ui/library/LibraryActions.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct WindowExportsTest : MainWindowTest {
  WindowExportsTest() {
    Preferences().setExportFolder(m_out.path().c_str());
    m_song = QBTabMgr::db().createAlbum("Practice", false)->createSong("01. Waltz");
    test::beatSong(m_song, "tempo=480 3/4 Am:x02210 q q q | G:320003 q q q |");
    buildTab(*m_song);
    QBTabMgr::db().save();
    QBSession::session().refreshTree();
    QBSession::session().setActiveSong(m_song);
    QObject::connect(&m_asked, &QTimer::timeout, [this] { answer(); });
    m_asked.start(1);
  }

  /// Of the file dialog by its filter and a name, of a question by a button.
  void answer() {
    QWidget* asked = QApplication::activeModalWidget();
    if (auto* question = qobject_cast<QMessageBox*>(asked)) {
      ++m_questions;
      question->button(m_replaces ? QMessageBox::Yes : QMessageBox::No)->click();
    }
    auto* dialog = qobject_cast<QFileDialog*>(asked);
    if (!dialog) return;
    for (const QString& filter : dialog->nameFilters())
      if (filter.startsWith(m_filter)) dialog->selectNameFilter(filter);
    m_filter.clear();
    m_proposed = QFileInfo(dialog->selectedFiles().value(0)).fileName();
    if (!m_name.isEmpty()) dialog->findChild<QLineEdit*>()->setText(inFolder(m_name));
    static_cast<QDialog*>(dialog)->accept();
  }
  QString inFolder(const QString& name) const {
    return QString::fromStdString(m_out.file(name.toStdString()));
  }
  void choose(const QString& entry, const QString& name, const QString& filter = {}) {
    m_name = name;
    m_filter = filter;
    action(entry)->trigger();
    ASSERT_TRUE(QTest::qWaitFor([] { return !QBSession::session().hasRunningJobs(); }, 20000));
  }
  QAction* entryOf(TreeNode& node, const QString& text) {
    m_menu.clear();
    m_window->findChild<LibraryActions*>()->fillMenu(m_menu, node);
    return action(text, &m_menu);
  }
  std::string written(const std::string& name) const { return test::readFile(m_out.file(name)); }
  QString files() const { return QDir(m_out.path().c_str()).entryList(QDir::Files).join(' '); }

  const test::ScratchFolder m_out;
  QBSong* m_song = nullptr;
  QTimer m_asked;
  QMenu m_menu;
  QString m_filter;
  QString m_name;
  QString m_proposed;
  bool m_replaces = true;
  int m_questions = 0;
};

struct TypedName {
  const char* filter;
  const char* typed;
  const char* file;
  const char* begin;
};

/// The ending says what a file is, and where there is none the filter does.
TEST_F(WindowExportsTest, fileIsWhatItsNameOrElseTheFilterSays) {
  const TypedName cases[] = {
      {"Guitar Pro 5", "a", "a.gp5",
       "\x18"
       "FICHIER GUITAR PRO"},
      {"MIDI file", "b.xml", "b.xml", "<?xml"},
      {"PDF document", "01. Waltz", "01. Waltz.pdf", "%PDF-"},
      {"PDF document", "c.mid", "c.mid", "MThd"},
      {"Picture", "d", "d.png", "\x89PNG"},
      {"Page of chords (*.txt)", "e", "e.txt", "01. Waltz"},
      {"Page of chords (*.svg)", "f.svg", "f.svg", "<?xml"},
      {"Text tablature", "g.cho", "g.cho", "{title: 01. Waltz}"},
  };
  for (const TypedName& each : cases) {
    choose("Export Song ...", each.typed, each.filter);
    EXPECT_TRUE(written(each.file).starts_with(each.begin)) << each.file << written(each.file);
    std::filesystem::remove(m_out.file(each.file));
    EXPECT_EQ(files(), "") << each.file;
  }
}

TEST_F(WindowExportsTest, soundIsThatOfTheLoopOnlyWhereItWasAskedFor) {
  m_song->setFromChord(m_song->allChords()[0].get());
  m_song->setToChord(m_song->allChords()[1].get());
  choose("Export Song ...", "whole.wav", "Text tablature");
  choose("Export Song ...", "named.wav", "PDF document");
  choose("Export Song ...", "loop.wav", "Sound of the loop");
  EXPECT_EQ(written("named.wav").size(), written("whole.wav").size());
  EXPECT_LT(written("loop.wav").size(), written("whole.wav").size());
}

TEST_F(WindowExportsTest, documentsGetTheEndingThatWasNotTypedAndReplaceNothingUnasked) {
  choose("Export as PDF ...", "");
  EXPECT_EQ(m_proposed, "01. Waltz.pdf");
  EXPECT_EQ(files(), "01. Waltz.pdf");
  test::writeFile(m_out.file("01. Waltz.pdf"), "mine");
  m_replaces = false;
  choose("Export as PDF ...", "01. Waltz");
  EXPECT_EQ(written("01. Waltz.pdf"), "mine");
  choose("Export Song ...", "01. Waltz", "Page of chords (*.pdf)");
  EXPECT_EQ(written("01. Waltz.pdf"), "mine");
  EXPECT_EQ(m_questions, 2);
  m_replaces = true;
  choose("Export as PDF ...", "01. Waltz");
  EXPECT_TRUE(written("01. Waltz.pdf").starts_with("%PDF-"));
  EXPECT_EQ(files(), "01. Waltz.pdf");
}

TEST_F(WindowExportsTest, instrumentComesBackFromItsFile) {
  InstrumentNode node(QBTabMgr::db().instruments().front());
  m_name = "Mine";
  entryOf(node, "Export Definition File ...")->trigger();
  EXPECT_EQ(files(), "Mine.xml");
  const std::size_t before = QBTabMgr::db().instruments().size();
  m_name = "Mine.xml";
  entryOf(node, "Import Definition File ...")->trigger();
  EXPECT_EQ(QBTabMgr::db().instruments().size(), before + 1);
  test::writeFile(m_out.file("Mine.xml"), "<instrument");
  entryOf(node, "Import Definition File ...")->trigger();
  EXPECT_EQ(QBTabMgr::db().instruments().size(), before + 1);
  EXPECT_TRUE(m_window->statusMessage().contains("Mine.xml"))
      << m_window->statusMessage().toStdString();
}

TEST_F(WindowExportsTest, songsOfAnAlbumAreWrittenIntoAFolder) {
  buildTab(*test::beatSong(m_song->album()->createSong("Tango"), "4/4 Em:022000 w |"));
  QBTabMgr::db().save();
  LibraryTree library(QBTabMgr::db(), QBSession::session());
  entryOf(*library.find(m_song->album()), "MIDI file")->trigger();
  ASSERT_TRUE(QTest::qWaitFor([] { return !QBSession::session().hasRunningJobs(); }, 20000));
  EXPECT_EQ(files(), "01. Waltz.mid Tango.mid");
}

}  // namespace
}  // namespace korvel::ui
