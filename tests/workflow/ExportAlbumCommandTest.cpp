// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ExportAlbumCommand.h"

#include "platform/loop/PlainRunLoop.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

struct ExportAlbumCommandTest : testing::Test {
  ExportAlbumCommandTest() {
    for (const char* title : {"Dawn", "a/b", "Dawn"})
      test::addChord(m_album->createSong(title), "x02210");
    m_album->createSong("Empty");
    fs::create_directory(m_folder);
  }
  std::set<std::string> files() const {
    std::set<std::string> names;
    for (const auto& file : fs::directory_iterator(m_folder)) names.insert(file.path().filename());
    return names;
  }
  void runUntil(const std::function<bool()>& done) {
    platform::PlainRunLoop::ofProcess().runUntil(done);
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
  QBAlbum* m_album = QBTabMgr::db().createAlbum("Mornings", false);
  const std::string m_folder = m_store.folder().file("out");
};

TEST_F(ExportAlbumCommandTest, writesEverySongThatHasChordsUnderANameOfItsOwn) {
  test::writeFile(m_folder + "/a_b.txt", "mine");
  ExportAlbumCommand job(*m_album, SongFormat::text, m_folder);
  job.runInBackground();
  runUntil([&] { return !job.isRunning(); });
  EXPECT_EQ(files(), (std::set<std::string>{"Dawn.txt", "Dawn 2.txt", "a_b.txt", "a_b 2.txt"}));
  EXPECT_EQ(test::readFile(m_folder + "/a_b.txt"), "mine");
  EXPECT_EQ(m_views.log.back(), m_folder + ": 3 songs exported.");
}

TEST_F(ExportAlbumCommandTest, writesSongsThatAreGiven) {
  QBSong* other = QBTabMgr::db().createAlbum("Evenings", false)->createSong("Dusk");
  test::addChord(other, "x02210");
  ExportAlbumCommand job({other, m_album->findSongByName("Dawn")}, SongFormat::midi, m_folder);
  job.runInBackground();
  runUntil([&] { return !job.isRunning(); });
  EXPECT_EQ(files(), (std::set<std::string>{"Dusk.mid", "Dawn.mid"}));
}

TEST_F(ExportAlbumCommandTest, leavesNothingWhenCancelledAndEndsWhereNothingCanBeWritten) {
  ExportAlbumCommand job(*m_album, SongFormat::midi, m_folder);
  job.runInBackground();
  runUntil([&] { return files().size() == 2; });
  job.cancelAndDrop();
  EXPECT_FALSE(job.isRunning());
  EXPECT_TRUE(files().empty());
  ExportAlbumCommand nowhere(*m_album, SongFormat::midi, m_folder + "/missing");
  nowhere.runInBackground();
  runUntil([&] { return !nowhere.isRunning(); });
  EXPECT_NE(m_views.log.back().find("missing"), std::string::npos);
}

}  // namespace
}  // namespace korvel
