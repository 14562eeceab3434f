// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/Resources.h"
#include "support/RecordingViews.h"
#include "support/StandardStore.h"
#include "workflow/QBAlbumNode.h"
#include "workflow/QBCmdImportSong.h"

namespace korvel {
namespace {

using Shapes = std::vector<std::string>;

Shapes importedShapes(const std::string& file) {
  const auto album = platform::Ref<QBAlbum>(QBTabMgr::db().createAlbum("A", false));
  QBSong* const song = album->createSong("S");
  QBCmdImportSong(std::make_shared<QBAlbumNode>(album), file, song).run();
  Shapes shapes;
  for (const auto& chord : song->allChords()) shapes.push_back(test::fretsOf(*chord));
  return shapes;
}

TEST(Demo, isHeardAsItWasPlayed) {
  const test::ScratchFolder folder;
  const test::RecordingViews views;
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath(folder.file("Korvel.sqlite"));
  const auto demo = platform::Resources::ofProgram().locate("demo/First Steps", "ogg");
  ASSERT_TRUE(demo);
  const Shapes heard = importedShapes(demo->string());
  QBTabMgr::clearDb();

  const Shapes strummed{"x02210", "133211", "x32010", "3x0003"};
  const Shapes melody{"xxxxx0", "xxxxx0", "xxxxx3", "xxxxx5", "xxxxx8", "xxxxx8",
                      "xxxxx7", "xxxxx5", "xxxxx3", "xxxxx3", "xxxxx5", "xxxxx5"};
  ASSERT_EQ(heard.size(), 40U);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(heard[i], strummed[i / 4]) << "slice " << i;
  EXPECT_EQ(Shapes(heard.begin() + 24, heard.begin() + 36), melody);
  for (std::size_t i = 36; i < 40; ++i) EXPECT_EQ(heard[i], "x02210") << "slice " << i;
}

}  // namespace
}  // namespace korvel
