// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/TreeModel.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <QUrl>

#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "ui/library/TreeOrder.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::ui {
namespace {

/// A model that follows the session, as the panel of the window has it.
struct TreeModelTest : testing::Test, TreeView {
  TreeModelTest() {
    for (const char* name : {"A", "B"})
      for (const char* title : {"S", "T"}) album(name)->createSong(title);
    SessionViews views = QBSession::session().views();
    views.tree = this;
    QBSession::session().attach(views);
    m_model.refresh();
  }

  void refreshAllContents() override { m_model.refresh(); }
  static QBAlbum* album(const std::string& name) {
    QBAlbum* known = QBTabMgr::db().findAlbumByName(name);
    return known ? known : QBTabMgr::db().createAlbum(name, false);
  }
  QModelIndex indexOf(int albumRow, int songRow = -1) const {
    const QModelIndex group = m_model.indexOfGroup(TreeModel::Group::albums);
    const QModelIndex found = m_model.index(albumRow, 0, group);
    return songRow < 0 ? found : m_model.index(songRow, 0, found);
  }
  QString text() const {
    QString text;
    for (int row = 0; row < m_model.rowCount(indexOf(0).parent()); ++row) {
      text += indexOf(row).data().toString() + ':';
      for (int song = 0; song < m_model.rowCount(indexOf(row)); ++song)
        text += ' ' + indexOf(row, song).data().toString();
      text += "; ";
    }
    return text;
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
  LibraryTree m_library{QBTabMgr::db(), QBSession::session()};
  TreeModel m_model{m_library};
  QAbstractItemModelTester m_tester{&m_model,
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TreeModelTest, followsTheStoreAndKeepsWhatIsStillThere) {
  const QPersistentModelIndex kept = indexOf(1, 1);
  deleteAlbum(*album("A"));
  album("B")->createSong("U");
  album("B")->deleteSong(album("B")->findSongByName("S"));
  newAlbum("C");
  EXPECT_EQ(text(), "B: T U; C:; ");
  EXPECT_EQ(kept, indexOf(0, 0));
}

TEST_F(TreeModelTest, songsStandInTheOrderThatIsChosen) {
  TreeOrder ordered(m_model);
  for (const char* title : {"r 10", "R 9"}) album("A")->createSong(title);
  for (const char* title : {"S", "S", "R 9"})
    test::addChord(album("A")->findSongByName(title), "x02210");
  QBTabMgr::db().save();
  m_model.refresh();
  const auto shown = [&](SongOrder order) {
    ordered.setOrder(order);
    const QModelIndex songs = ordered.mapFromSource(indexOf(0));
    QStringList titles;
    for (int row = 0; row < ordered.rowCount(songs); ++row)
      titles << ordered.index(row, 0, songs).data().toString();
    return titles.join(' ');
  };
  EXPECT_EQ(shown(SongOrder::byTitle), "R 9 r 10 S T");
  EXPECT_EQ(shown(SongOrder::newestFirst), "R 9 r 10 T S");
  EXPECT_EQ(ordered.index(0, 0, ordered.index(0, 0)).data(), "B");
  EXPECT_EQ(shown(SongOrder::byLength), "T r 10 R 9 S");
  album("A")->deleteSong(album("A")->findSongByName("T"));
  ordered.measure();
  m_model.refresh();
  EXPECT_EQ(shown(SongOrder::asStored), "S r 10 R 9");
}

TEST_F(TreeModelTest, songIsDraggedToAnotherAlbum) {
  const std::unique_ptr<QMimeData> dragged(m_model.mimeData({indexOf(0, 0)}));
  const QModelIndex tunings = m_model.indexOfGroup(TreeModel::Group::tunings);
  EXPECT_FALSE(m_model.canDropMimeData(dragged.get(), Qt::MoveAction, -1, -1, tunings));
  m_model.dropMimeData(dragged.get(), Qt::MoveAction, -1, -1, indexOf(1, 1));
  EXPECT_EQ(text(), "A: T; B: S_2 S T; ");
}

TEST_F(TreeModelTest, filesAreDroppedIntoTheAlbumUnderThem) {
  const QSignalSpy dropped(&m_model, &TreeModel::filesDropped);
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/tmp/a b.mp3"), QUrl("https://example.org/c.mp3")});
  m_model.dropMimeData(&files, Qt::CopyAction, 0, 0, indexOf(1, 0));
  m_model.dropMimeData(&files, Qt::CopyAction, -1, -1, {});
  ASSERT_EQ(dropped.count(), 2);
  EXPECT_EQ(dropped[0][0].toStringList(),
            QStringList({"/tmp/a b.mp3", "https://example.org/c.mp3"}));
  EXPECT_EQ(dropped[0][1].toModelIndex(), indexOf(1));
  EXPECT_FALSE(dropped[1][1].toModelIndex().isValid());
}

TEST_F(TreeModelTest, nameThatIsTakenIsRefusedWithALine) {
  const QSignalSpy refused(&m_model, &TreeModel::refused);
  EXPECT_FALSE(m_model.setData(indexOf(0, 0), "T", Qt::EditRole));
  ASSERT_EQ(refused.count(), 1);
  EXPECT_TRUE(refused[0][0].toString().startsWith("T: "));
  EXPECT_TRUE(m_model.setData(indexOf(0, 0), " Waltz ", Qt::EditRole));
  EXPECT_EQ(text(), "A: Waltz T; B: S T; ");
}

}  // namespace
}  // namespace korvel::ui
