// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBSession.h"

#include <gtest/gtest.h>

#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "support/RecordingViews.h"
#include "support/ScratchStore.h"
#include "workflow/QBAlbumNode.h"
#include "workflow/QBCommand.h"
#include "workflow/QBNameMgr.h"

namespace korvel {
namespace {

TEST(QBSession, exceptionIsShownAndLoggedInFull) {
  test::RecordingViews views;
  QBSession::session().handleException("importSong", std::out_of_range("no chord"));
  EXPECT_EQ(views.content,
            "EXCEPTION OCCURED IN CONTEXT: importSong\r\n------------------------\r\n"
            "EXCEPTION NAME: std::out_of_range\r\n------------------------\r\n"
            "DESCRIPTION: no chord\r\n------------------------\r\n"
            "DEBUG DESCRIPTION: std::out_of_range: no chord");
  EXPECT_EQ(views.log, std::vector{views.content});
}

TEST(QBSession, errorsAreLoggedAsTheLogShowsThem) {
  test::RecordingViews views;
  QBSession::session().handleError("X", "lost in the text");
  QBSession::session().logError("bare");
  EXPECT_EQ(views.log, (std::vector<std::string>{"X", "X", "X", "X", "bare"}));
}

TEST(QBSession, fatalErrorIsShownBeforeTheProcessEnds) {
  test::RecordingViews views;
  const auto end = [](auto&& action) {
    try {
      action();
    } catch (const test::RecordingViews::ProcessEnded& ended) {
      return ended.status;
    }
    return 99;
  };
  QBSession& session = QBSession::session();
  EXPECT_EQ(end([&] { session.exitWithError("Saving Data Failed", "disk full"); }), 0);
  EXPECT_EQ(views.alert,
            "AN ERROR OCCURED IN CONTEXT: Saving Data Failed\r\nDESCRIPTION: disk full\r\n\r\n"
            "Korvel will be closed");
  const test::ScratchFolder folder;
  test::writeFile(folder.file("Korvel.sqlite"), "no store at all");
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath(folder.file("Korvel.sqlite"));
  EXPECT_EQ(end([] { QBTabMgr::db(); }), -1);
  QBTabMgr::setStorePath({});
  EXPECT_EQ(views.alert.rfind("AN ERROR OCCURED IN CONTEXT: Model Store Initialization\r\n", 0),
            0U);
}

TEST(QBSession, menusFollowTheKindOfNode) {
  const test::ScratchStore store;
  test::RecordingViews views;
  QBSession& session = QBSession::session();
  QBAlbumNode album(QBTabMgr::db().createAlbum("A", false));
  QBTreeNode other;
  session.setActiveTreeNode(&album);
  EXPECT_TRUE(views.albumMenuEnabled);
  EXPECT_FALSE(views.songMenuEnabled());
  EXPECT_EQ(session.activeAlbumNode(), &album);
  EXPECT_EQ(session.activeSongNode(), nullptr);
  session.setActiveTreeNode(&other);
  EXPECT_FALSE(views.albumMenuEnabled);
  session.setActiveTreeNode(nullptr);
}

TEST(QBSession, resettingTheLoopClearsBothEnds) {
  const test::ScratchStore store;
  QBSong* song = QBTabMgr::db().createAlbum("A", false)->createSong("S");
  song->setFromChord(song->createChord());
  song->setToChord(song->createChord());
  QBSession::session().setActiveSong(song);
  QBSession::session().resetLoop();
  EXPECT_EQ(song->fromChord(), nullptr);
  EXPECT_EQ(song->toChord(), nullptr);
  QBSession::session().setActiveSong(nullptr);
}

TEST(QBNameMgr, appendsUntilTheNameIsFree) {
  const test::ScratchStore store;
  QBAlbum* album = QBTabMgr::db().createAlbum("A", false);
  EXPECT_EQ(QBNameMgr(album, "A").newName(), "A") << "songs and albums do not share names";
  album->createSong("S");
  album->createSong("S_2");
  EXPECT_EQ(QBNameMgr(album, "S").newName(), "S_2_2");
  EXPECT_EQ(QBNameMgr(nullptr, "A").newAlbumName(), "A_2");
}

}  // namespace
}  // namespace korvel
