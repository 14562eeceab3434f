// SPDX-License-Identifier: GPL-3.0-or-later
// Every entry of the menu bar, on songs of every kind.

#include <QDialog>
#include <algorithm>

#include "platform/persistence/UndoManager.h"
#include "support/songs/BeatSong.h"
#include "support/songs/DoubtedSong.h"
#include "support/store/StoreContents.h"
#include "tab/text/SongDrawing.h"
#include "ui/MainWindowTest.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct SongKind {
  const char* name;
  QBSong* (*make)(QBAlbum&);
};

void PrintTo(const SongKind& kind, std::ostream* out) { *out << kind.name; }

QBSong* halfHeard(QBAlbum& album) {
  QBSong* song = album.createSong("Slices");
  for (const char* frets : {"x02210", "320003", "xxxxxx", "x32010"}) test::addChord(song, frets, 2);
  song->setUnheard("/nowhere/Tune.wav");
  return song;
}

QBSong* onBeats(QBAlbum& album) {
  return test::beatSong(album.createSong("Beats"),
                        "tempo=96 key=0 3/4 Am:x02210 q q e_1h | G:320003 q rq q |");
}

QBSong* ofRests(QBAlbum& album) {
  return test::beatSong(album.createSong("Rests"), "4/4 rq rq rq rq |");
}

const SongKind kKinds[] = {
    {"none", [](QBAlbum&) -> QBSong* { return nullptr; }},
    {"empty", [](QBAlbum& album) { return album.createSong("Empty"); }},
    {"halfHeard", halfHeard},
    {"beats", onBeats},
    {"rests", ofRests},
    {"doubted", [](QBAlbum& album) { return &test::doubtedSong(album); }},
};

struct MenusTest : MainWindowTest, testing::WithParamInterface<SongKind> {
  MenusTest() {
    QBAlbum* album = QBTabMgr::db().createAlbum("Practice", false);
    album->createSong("Another");
    m_song = GetParam().make(*album);
    if (m_song && !m_song->chords().empty()) buildTab(*m_song);
    QBTabMgr::db().save();
    QBSession::session().refreshTree();
    QBSession::session().setActiveSong(m_song);
    QObject::connect(&m_asked, &QTimer::timeout, [this] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      m_cancelled = true;
      dialog->reject();
    });
    m_asked.start(0);
  }

  static platform::SqliteDatabase& store() { return QBTabMgr::db().context().store(); }
  static std::string changes() { return store().column("SELECT total_changes()").front(); }

  /// The path of each entry that a user can choose now; of long menus of one kind, such as frets,
  /// the first and the last.
  QStringList entries(QMenu* menu, const QString& path) {
    emit menu->aboutToShow();
    QStringList found;
    for (QAction* each : menu->actions())
      if (each->menu())
        found << entries(each->menu(), path + plain(*each) + '/');
      else if (!each->isSeparator() && each->isEnabled())
        found << path + plain(*each);
    emit menu->aboutToHide();
    constexpr int kFew = 7;
    const bool isOfOneKind = path.count('/') > 1 && found.size() > kFew;
    return isOfOneKind ? QStringList{found.front(), found.back()} : found;
  }
  static QString plain(const QAction& entry) { return entry.text().remove('&'); }
  QAction* at(QMenu* menu, const QStringList& path) {
    emit menu->aboutToShow();
    QAction* found = nullptr;
    for (QAction* each : menu->actions())
      if (plain(*each) == path.front()) found = each;
    if (found && path.size() > 1) found = found->menu() ? at(found->menu(), path.mid(1)) : nullptr;
    emit menu->aboutToHide();
    return found;
  }

  /// What is wrong after an entry was chosen, every dialog of which was cancelled.
  std::string choose(QAction& entry) {
    m_cancelled = false;
    const std::string before = changes();
    if (before != m_changes) m_contents = test::contentsOf(store());  // the player's settings
    const std::string action = undoName();
    entry.trigger();
    QCoreApplication::processEvents();
    std::string wrong;
    if (QBTabMgr::db().context().hasChanges()) wrong += " leaves something unsaved;";
    if (const TablatureView& shown = m_window->tablature(); shown.song()) {
      const auto chords = static_cast<int>(shown.song()->allChords().size());
      if (shown.song() != QBSession::session().activeSong()) wrong += " shows another song;";
      if (std::max(shown.cursorChord(), shown.selection().last) >= chords)
        wrong += " leaves the cursor behind the end;";
    }
    if (changes() != before) wrong += takenBack();
    if (undoName() != action) wrong += " is undone as something else;";
    m_changes = changes();
    QBSession::session().setActiveSong(m_song);
    QCoreApplication::processEvents();
    return wrong.empty() ? "" : plain(entry).toStdString() + wrong + '\n';
  }
  std::string takenBack() {
    std::string wrong;
    if (m_cancelled) wrong += " changes something though it was cancelled;";
    QBSession::session().undo();
    QCoreApplication::processEvents();
    const std::string now = test::contentsOf(store());
    if (std::exchange(m_contents, now) != now) wrong += " is not taken back;";
    return wrong;
  }
  static std::string undoName() {
    return QBTabMgr::db().context().undoManager().undoActionName().english();
  }

  platform::Ref<QBSong> m_song;
  QTimer m_asked;
  bool m_cancelled = false;
  std::string m_changes;  ///< So many there were when the contents were these.
  std::string m_contents;
};

/// But for commands of songs, which are tried where they are made, and playing, which needs sound.
TEST_P(MenusTest, cancelledEntryChangesNothingAndEveryOtherOneIsTakenBack) {
  std::string wrong;
  int chosen = 0;
  for (QAction* bar : m_window->menuBar()->actions())
    for (const QString& path : entries(bar->menu(), plain(*bar) + '/')) {
      const QStringList steps = path.split('/');
      if (steps.contains("Quit") || steps.contains("Play or Stop") || steps.contains("Undo"))
        continue;
      if (steps.front() == "Song" && steps.size() > 2) continue;
      QAction* entry = at(bar->menu(), steps.mid(1));
      if (!entry) continue;
      wrong += choose(*entry);
      ++chosen;
    }
  EXPECT_EQ(wrong, "");
  EXPECT_GT(chosen, 30);
}

INSTANTIATE_TEST_SUITE_P(Kinds, MenusTest, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace korvel::ui
