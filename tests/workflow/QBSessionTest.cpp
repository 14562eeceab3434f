// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/QBSession.h"

#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "workflow/arranging/QBSongMenu.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/ProgramEnd.h"
#include "workflow/session/QBCommand.h"

namespace korvel {
namespace {

TEST(QBSession, errorsAreLoggedAsTheLogShowsThem) {
  test::RecordingViews views;
  QBSession::session().handleError("X", "lost in the text");
  QBSession::session().logError(platform::UserText::verbatim("bare"));
  EXPECT_EQ(views.log, (std::vector<std::string>{"X", "X", "X", "X", "bare"}));
}

TEST(QBSession, fatalErrorsAreShownBeforeTheProgramEnds) {
  test::RecordingViews views;
  const platform::UserText reason(platform::phrase("Message", "cannot read"));
  EXPECT_THROW(QBSession::session().exitWithError(platform::UserText::verbatim("X"), reason),
               ProgramEnd);
  EXPECT_EQ(views.alert,
            "AN ERROR OCCURED IN CONTEXT: X\r\nDESCRIPTION: cannot read\r\n\r\n"
            "Korvel will be closed");
}

TEST(QBSession, songMenuCommandsTheSongThatIsSelectedInTheTree) {
  const test::StandardStore store;
  test::RecordingViews views;
  QBSession& session = QBSession::session();
  QBSongMenu menu(session);
  QBAlbum* album = QBTabMgr::db().createAlbum("A", false);
  test::addChord(album->createSong("S"), "x02210");
  const auto tree = AlbumNode::withSongs(album);
  const auto enabled = [&] {
    const auto count = std::ranges::count(menu.items(), true, &QBSongMenu::Item::enabled);
    EXPECT_TRUE(count == 0 || count == std::ssize(menu.items())) << count;
    return count > 0;
  };
  EXPECT_FALSE(enabled());
  session.setActiveTreeNode(tree->findChild(album->findSongByName("S")));
  EXPECT_TRUE(enabled());
  EXPECT_FALSE(views.albumMenuEnabled);
  menu.perform("extractLeadingBrass");
  EXPECT_NE(album->findSongByName("S(Brs)"), nullptr);
  EXPECT_THROW(menu.perform("extractBrass"), std::invalid_argument) << "the name of the command";
  menu.perform("deleteSong");
  EXPECT_EQ(session.activeSongNode(), nullptr);
  menu.perform("deleteSong");
  EXPECT_EQ(views.log,
            (std::vector<std::string>{"Bass extracted.", "Song was successfully deleted.",
                                      "There is currently no Song selected."}));
  EXPECT_EQ(album->songs().size(), 1U);
  session.setActiveTreeNode(tree.get());
  EXPECT_FALSE(enabled());
  EXPECT_TRUE(views.albumMenuEnabled);
  EXPECT_EQ(session.activeAlbumNode(), tree.get());
  TreeNode other;
  session.setActiveTreeNode(&other);
  EXPECT_FALSE(views.albumMenuEnabled);
  session.setActiveTreeNode(nullptr);
  session.setActiveSong(nullptr);
}

TEST(QBNameMgr, appendsUntilTheNameIsFree) {
  const test::ScratchStore store;
  QBAlbum* album = QBTabMgr::db().createAlbum("A", false);
  EXPECT_EQ(QBNameMgr(album, "A").newName(), "A") << "songs and albums do not share names";
  album->createSong("S");
  album->createSong("S_2");
  EXPECT_EQ(QBNameMgr(album, "S").newName(), "S_2_2");
  EXPECT_EQ(QBNameMgr(nullptr, "A").newAlbumName(QBTabMgr::db()), "A_2");
}

}  // namespace
}  // namespace korvel
