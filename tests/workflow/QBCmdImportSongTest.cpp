// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBCmdImportSong.h"

#include <gtest/gtest.h>

#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "platform/PlainRunLoop.h"
#include "platform/Resources.h"
#include "support/Guitar.h"
#include "support/RecordingViews.h"
#include "support/ScratchFolder.h"
#include "workflow/QBAlbumNode.h"

namespace korvel {
namespace {

class QBCmdImportSongTest : public testing::Test {
 protected:
  QBCmdImportSongTest() {
    QBTabMgr::clearDb();
    QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
    test::writeWav(m_file, test::fewChords());
  }
  ~QBCmdImportSongTest() override { QBTabMgr::clearDb(); }

  std::shared_ptr<QBCmdImportSong> command(const std::string& file, const std::string& title) {
    if (!m_album) m_album = QBTabMgr::db().createAlbum("A", false);
    return std::make_shared<QBCmdImportSong>(std::make_shared<QBAlbumNode>(m_album), file,
                                             m_album->createSong(title));
  }
  QBSong& song(const std::string& title) { return *m_album->findSongByName(title); }

  const test::ScratchFolder m_folder;
  test::RecordingViews m_views;
  std::string m_file = m_folder.file("a.wav");
  platform::Ref<QBAlbum> m_album;
};

TEST_F(QBCmdImportSongTest, leavesOnlyTheNewSong) {
  const auto import = command(m_file, "S");
  EXPECT_EQ(import->fullTitle(), "Song Import");
  import->run();
  EXPECT_EQ(m_album->songs().size(), 1U) << "the scratch song is gone";
  EXPECT_TRUE(song("S").hasTabulature());
  EXPECT_GE(song("S").chords().size(), 14U);
  EXPECT_TRUE(QBTabMgr::db().context().fetch("QBBlock").empty()) << "blocks live for one step";
  EXPECT_EQ(m_views.log,
            (std::vector<std::string>{"(1/3) importing file .....", "(2/3) scanning chords .....",
                                      ".. scanning chords.", "(3/3) building tabulature .....",
                                      "Song successfully imported."}));
}

TEST_F(QBCmdImportSongTest, soundlessFileEndsWithAnEmptySong) {
  const auto import = command(m_folder.file("missing.wav"), "S");
  import->run();
  EXPECT_TRUE(song("S").chords().empty());
  EXPECT_FALSE(song("S").hasTabulature());
  EXPECT_EQ(m_views.log.back(), "Song successfully imported.");
  EXPECT_EQ(m_views.log.at(1), "no asset tracks found");
}

TEST_F(QBCmdImportSongTest, twoSteppedImportsRunInterleaved) {
  const auto first = command(m_file, "S1");
  const auto second = command(m_file, "S2");
  first->runInBackground();
  second->runInBackground();
  bool together = false;
  platform::PlainRunLoop::ofProcess().runUntil([&] {
    together |= song("S1").chords().size() > 3 && song("S2").chords().size() > 3 &&
                first->isRunning() && second->isRunning();
    return !first->isRunning() && !second->isRunning();
  });
  EXPECT_TRUE(together);
  EXPECT_EQ(song("S1").chords().size(), song("S2").chords().size());
  EXPECT_EQ(m_views.log.back(), "Song successfully imported.");
}

}  // namespace
}  // namespace korvel
