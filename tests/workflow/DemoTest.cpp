// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/Resources.h"
#include "support/RecordingViews.h"
#include "support/StandardStore.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/library/AlbumNode.h"

namespace korvel {
namespace {

using Shapes = std::vector<std::string>;

Shapes shapesOf(QBSong& song) {
  Shapes shapes;
  for (const auto& chord : song.allChords()) shapes.push_back(test::fretsOf(*chord));
  return shapes;
}

class DemoTest : public testing::Test {
 protected:
  DemoTest() {
    QBTabMgr::clearDb();
    QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
  }
  ~DemoTest() override { QBTabMgr::clearDb(); }

  QBSong& import(ImportDetection detection) {
    const auto demo = platform::Resources::ofProgram().locate("demo/First Steps", "ogg");
    const platform::Ref<QBAlbum> album(QBTabMgr::db().createAlbum("A", false));
    QBSong* const song = album->createSong("S");
    QBCmdImportSong command(std::make_shared<AlbumNode>(album), demo->string(), song);
    command.setDetection(detection,
                         {.fingering = {.position = {.kind = precise::Position::Kind::open}}});
    command.run();
    return *song;
  }

  const test::ScratchFolder m_folder;
  const test::RecordingViews m_views;
  const Shapes strummed{"x02210", "133211", "x32010", "3x0003"};
  const Shapes melody{"xxxxx0", "xxxxx0", "xxxxx3", "xxxxx5", "xxxxx8", "xxxxx8",
                      "xxxxx7", "xxxxx5", "xxxxx3", "xxxxx3", "xxxxx5", "xxxxx5"};
};

TEST_F(DemoTest, isHeardAsItWasPlayed) {
  const Shapes heard = shapesOf(import(ImportDetection::classic));
  ASSERT_EQ(heard.size(), 40U);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(heard[i], strummed[i / 4]) << "slice " << i;
  EXPECT_EQ(Shapes(heard.begin() + 24, heard.begin() + 36), melody);
  for (std::size_t i = 36; i < 40; ++i) EXPECT_EQ(heard[i], "x02210") << "slice " << i;
}

TEST_F(DemoTest, isHeardPreciselyAndTellsWhatIsStruckAgain) {
  QBSong& song = import(ImportDetection::precise);
  const Shapes heard = shapesOf(song);
  ASSERT_EQ(heard.size(), 40U);
  // The octave inside the barre is too faint in this recording.
  const Shapes clear{"x02210", "13x211", "x32010", "3x0003"};
  for (std::size_t i = 0; i < clear.size(); ++i) EXPECT_EQ(heard[4 * i], clear[i]);
  EXPECT_EQ(Shapes(heard.begin() + 25, heard.begin() + 36),
            Shapes(melody.begin() + 1, melody.end()));
  // As notes that ring on: one strum, then the arpeggio string by string.
  const Shapes played = shapesOf(*toPicking(song));
  EXPECT_EQ(Shapes(played.begin(), played.begin() + 4),
            (Shapes{"x02210", "xxxxxx", "xxxxxx", "xxxxxx"}));
  EXPECT_EQ(
      Shapes(played.begin() + 16, played.begin() + 24),
      (Shapes{"x0xxxx", "xx2xxx", "xxx2xx", "xxxx1x", "xxxxx0", "xxxx1x", "xxx2xx", "xx2xxx"}));
}

}  // namespace
}  // namespace korvel
