// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"
#include "model/store/QBSettings.h"
#include "platform/persistence/UndoManager.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

/// What front ends offer, which is not in all commands the letter of the operation.
struct ArrangingForPlayersTest : testing::Test {
  using Shapes = std::vector<const char*>;

  QBSong* song(const Shapes& shapes) {
    QBSong* made = m_desk.album()->createSong("Song");
    for (const char* frets : shapes) readHarmony(*test::addChord(made, frets));
    buildTab(*made);
    QBTabMgr::db().save();
    return made;
  }
  /// The song that a command made last.
  QBSong* ordered(QBSong* source, std::string_view command, Manner manner = Manner::forPlayers) {
    const auto node = AlbumNode::withSongs(source->album());
    EXPECT_TRUE(orderOf(*node->findChild(source), *findSongCommand(command), manner)) << command;
    return QBSession::session().activeSong();
  }
  /// Shapes and names of the chords that a command makes of others.
  std::string arranged(std::string_view command, const Shapes& shapes,
                       Manner manner = Manner::forPlayers) {
    std::string text;
    for (const QBChord* chord : ordered(song(shapes), command, manner)->chords())
      text += (text.empty() ? "" : " ") + test::fretsOf(*chord) +
              (chord->harmony() ? ":" + chord->fullHarmonyName() : "");
    return text;
  }

  static platform::UndoManager& undo() { return QBTabMgr::db().context().undoManager(); }

  test::SongDesk m_desk;
};

TEST_F(ArrangingForPlayersTest, transposedChordsKeepTheirTonesAndAreNamed) {
  EXPECT_EQ(arranged("transposeUpBy2", {"320003", "x02210", "133211"}),
            "542225:A x24432:Bm 355433:G");
  EXPECT_EQ(arranged("transposeUpBy2", {"xxxxxa"}), "xxxxxc");
  EXPECT_EQ(arranged("transposeUpBy2", {"xxxxxi"}), "xxxxdx") << "off the neck, an octave lower";
  EXPECT_EQ(arranged("transposeDownBy2", {"022100"}), "55423x:D") << "the low D is there higher up";
  EXPECT_EQ(arranged("transposeUpBy1", {"0xxxxc"}), "1xxxxd") << "wide, but whole";
  EXPECT_EQ(arranged("transposeUpBy2", {"320003"}, Manner::literal), "x[04]2225");
}

TEST_F(ArrangingForPlayersTest, fingersFindTheEasyGripsAndKeepThem) {
  EXPECT_EQ(arranged("findBestFingering", {"320003", "x02210", "133211"}),
            "320003:G x02210:Am 133211:F");
  EXPECT_EQ(arranged("findBestFingering", {"3a9x8x"}), "3xx003:G");
  EXPECT_EQ(arranged("pushDownStrings", {"320003", "x02210"}), "320003:G 57755x:Am");
  EXPECT_EQ(arranged("pushDownStrings", {"320003"}, Manner::literal), "[37]5548x");
}

TEST_F(ArrangingForPlayersTest, barsStayWhereTheyAre) {
  QBSong* source =
      song({"320003", "x02210", "133211", "x02210", "320003", "x02210", "133211", "x02210"});
  QBSong* measured = ordered(source, "extract4_4");
  const auto bars = [](const QBSong& of) {
    std::string text;
    for (const QBChord* chord : of.chords())
      text += (chord->measure() ? std::to_string(chord->measure()->position()) : "-") + '*' +
              std::to_string(chord->duration()) + ' ';
    return text;
  };
  const std::string before = bars(*measured);
  EXPECT_NE(before.find("1*"), std::string::npos);
  for (const std::string& command : test::songCommands()) {
    if (command == "deleteSong" || findSongCommand(command)->tag.ends_with("8)") ||
        findSongCommand(command)->tag.ends_with("4)"))
      continue;
    const QBSong* made = ordered(measured, command);
    if (made->chords().size() == 8) {
      EXPECT_EQ(bars(*made), before) << command;
    }
  }
}

TEST_F(ArrangingForPlayersTest, whatWouldBeEmptyLeavesNothing) {
  const auto refusal = [this](const char* command, const Shapes& shapes) {
    QBSong* source = song(shapes);
    const auto before = m_desk.album()->songs().snapshot();
    const std::string undone = undo().undoActionName().english();
    std::string text;
    try {
      ordered(source, command);
    } catch (const EditRefused& reason) {
      text = reason.what();
    }
    EXPECT_EQ(m_desk.album()->songs().snapshot(), before) << command;
    EXPECT_EQ(undo().undoActionName().english(), undone) << command;
    return text;
  };
  const auto refused = [](const std::string& title) {
    return "Song: \"" + title + "\" would leave nothing to play, so it made no song";
  };
  EXPECT_EQ(refusal("cleanChords", {"xxxxx5", "xxxxx7"}), refused("Clean Chords"));
  EXPECT_EQ(refusal("extractVoicings", {"320003", "x02210"}), refused("Detect Voicings"));
  EXPECT_EQ(refusal("removeMelody", {"xxxxx5", "xxxxx7"}), refused("Remove Melody"));
  EXPECT_EQ(refusal("extractChainStandard", {"xxxxxx"}), refused("All Standard Filters"));
}

TEST_F(ArrangingForPlayersTest, trimmingWritesItsStagesIntoAFolderOfTheirOwn) {
  namespace fs = std::filesystem;
  const fs::path work = m_desk.folder().path();
  const fs::path first = work / "Song(trimmed)";
  QBSong* source = song({"320003", "x02210"});
  test::writeFile(first, "a file of the user's");
  const QBSong* made = ordered(source, "trimToPlayable");
  EXPECT_EQ(made->title(), "Song(trimmed)");
  EXPECT_EQ(test::readFile(first), "a file of the user's");
  for (const char* stage : {"NonChords", "Contra", "RightHand"})
    EXPECT_TRUE(fs::exists(work / "Song(trimmed) 2" / ("Song(" + std::string(stage) + ").txt")));
  QBTabMgr::db().selectedSettings()->setWorkDir("/proc/none/");
  QBTabMgr::db().save();
  const auto songs = m_desk.album()->songs().snapshot();
  const auto node = AlbumNode::withSongs(m_desk.album());
  EXPECT_FALSE(orderOf(*node->findChild(source), *findSongCommand("trimToPlayable")));
  EXPECT_EQ(m_desk.album()->songs().snapshot(), songs);
}

TEST_F(ArrangingForPlayersTest, theChainEndsOnItsResult) {
  EXPECT_EQ(ordered(song({"320003", "x02210"}), "extractChainStandard")->title(),
            "Song(Ldng6)(Lft)(Rght)");
}

}  // namespace
}  // namespace korvel
