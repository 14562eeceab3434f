// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using nlohmann::json;
using test::Outcome;

/// The tool on a store that holds "Tape/One", a few chords.
class ArrangeCliTest : public testing::Test {
 protected:
  ArrangeCliTest() {
    test::writeWav(m_folder.file("One.wav"), test::fewChords());
    EXPECT_EQ(tool({"import", "--album", "Tape", m_folder.file("One.wav")}).status, 0);
  }
  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", m_store});
    return test::runProgram(words);
  }
  json song(const std::string& name) const { return json::parse(tool({"dump", name}).out); }
  std::string refused(const std::vector<std::string>& words) const {
    const Outcome outcome = tool(words);
    EXPECT_EQ(outcome.status, 1) << outcome.out;
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    return outcome.err;
  }

  test::ScratchFolder m_folder;
  std::string m_store = m_folder.file("Korvel.sqlite");
};

TEST_F(ArrangeCliTest, eachCommandTakesTheSongThatTheOneBeforeMade) {
  const Outcome outcome = tool({"apply", "One", "extractMelody", "extract4_4", "copySong"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "One(Mld)\nOne(Mld)(4_4)\nOne(Mld)(4_4)(Cpy)\n");
  EXPECT_EQ(outcome.err, "Melody extracted.\n4/4 Metric added\nSong was successfully cloned.\n");
  EXPECT_EQ(tool({"list"}).out,
            "Tape/One\nTape/One(Mld)\nTape/One(Mld)(4_4)\nTape/One(Mld)(4_4)(Cpy)\n");
  EXPECT_NE(tool({"show", "One(Mld)(4_4)"}).out.find("1 . + ."), std::string::npos);
  const std::string menu = tool({"apply", "--list"}).out;
  EXPECT_NE(menu.find("Apply Rhythmn Filters\n  3/4  [extract3_4]\n"), std::string::npos) << menu;
}

TEST_F(ArrangeCliTest, aWholeAlbumIsDoneAndASongThatFailsDoesNotStopTheOthers) {
  ASSERT_EQ(tool({"apply", "One", "copySong", "extractBrass"}).status, 0);
  const Outcome outcome =
      tool({"apply", "--album", "Tape", "--all", "extractVoicings", "extractMelody"});
  EXPECT_EQ(outcome.status, 1) << "the bass has no chord of three tones";
  EXPECT_NE(outcome.err.find("Tape/One(Cpy)(Brs): extractVoicings failed"), std::string::npos);
  EXPECT_EQ(outcome.out, "One(voic)\nOne(voic)(Mld)\nOne(Cpy)(voic)\nOne(Cpy)(voic)(Mld)\n");
  EXPECT_EQ(tool({"check"}).status, 0);
}

TEST_F(ArrangeCliTest, whatCannotBeDoneIsSaidInOneLineAndLeavesNothing) {
  const std::string before = tool({"list"}).out;
  EXPECT_NE(refused({"apply", "Two", "extractMelody"}).find("\"Tape/One\""), std::string::npos);
  EXPECT_NE(refused({"apply", "--album", "Nope", "--all", "extractMelody"}).find("\"Tape\""),
            std::string::npos);
  EXPECT_NE(refused({"loop", "One", "1", "99"}).find("has no chord 99"), std::string::npos);
  EXPECT_NE(refused({"extract", "One", "3", "99"}).find("has no chord 99"), std::string::npos);
  refused({"rename", "One", ""});
  EXPECT_EQ(tool({"apply", "One", "extractNothing"}).status, 2);
  EXPECT_EQ(tool({"apply", "--all", "extractMelody"}).status, 2);
  EXPECT_EQ(tool({"loop", "One", "1"}).status, 2);
  EXPECT_EQ(tool({"list"}).out, before);
}

TEST_F(ArrangeCliTest, songsAreLoopedRenamedMovedMergedAndCut) {
  EXPECT_EQ(tool({"loop", "One", "4", "2"}).status, 0);
  EXPECT_EQ(song("One")["fromChord"], 2);
  EXPECT_EQ(song("One")["toChord"], 4);
  EXPECT_NE(tool({"show", "One"}).out.find("XX"), std::string::npos);
  EXPECT_EQ(tool({"loop", "One", "--clear"}).status, 0);
  EXPECT_EQ(tool({"show", "One"}).out.find("XX"), std::string::npos);

  EXPECT_EQ(tool({"extract", "One", "2", "4"}).out, "Tape/One(2,4)\n");
  EXPECT_EQ(song("One(2,4)")["chords"].size(), 3U);
  EXPECT_EQ(tool({"rename", "One(2,4)", "[a]/b"}).out, "Tape/[a]/b\n");
  EXPECT_NE(tool({"show", "[a]/b"}).out.find("        [a]/b"), std::string::npos);
  EXPECT_EQ(tool({"move", "[a]/b", "Other"}).out, "Other/[a]/b\n");
  EXPECT_EQ(tool({"clone", "One"}).out, "Tape/One(Cpy)\n");
  EXPECT_EQ(tool({"rename", "One", "One(Cpy)"}).status, 1) << "a title that is taken";
  EXPECT_EQ(tool({"merge", "One", "[a]/b"}).out, "Tape/One(mrg)\n");
  EXPECT_EQ(tool({"merge", "One", "[a]/b"}).out, "Tape/One(mrg)\n");
  EXPECT_EQ(tool({"delete", "Tape/One(mrg)"}).status, 1) << "there are two";
  EXPECT_EQ(tool({"delete", "Tape/One(mrg)#2"}).status, 0);
  EXPECT_EQ(tool({"delete", "Tape/One(mrg)"}).status, 0);
}

TEST_F(ArrangeCliTest, aSongIsArrangedInItsOwnTuning) {
  ASSERT_EQ(
      tool({"import", "--tuning", "Drop D", "--title", "Low", m_folder.file("One.wav")}).status, 0);
  ASSERT_EQ(tool({"apply", "Low", "pushDownStrings", "transposeUpBy1"}).status, 0);
  EXPECT_EQ(song("Low(Psh)(UpBy1)")["tuning"], "Drop D");
  EXPECT_NE(tool({"show", "Low(Psh)"}).out.find("|D----"), std::string::npos);
  EXPECT_EQ(tool({"tunings"}).out.find("* Drop D"), std::string::npos);
}

}  // namespace
}  // namespace korvel
