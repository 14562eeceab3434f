// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using test::Outcome;

class ExportCliTest : public testing::Test {
 protected:
  ExportCliTest() {
    test::writeWav(file("[a].wav"), test::fewChords());
    EXPECT_EQ(tool({"import", file("[a].wav"), "--title", "Fish & [Chips]"}).status, 0);
  }

  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", file("Korvel.sqlite")});
    return test::runProgram(words);
  }
  Outcome exportTo(std::vector<std::string> words) const {
    words.insert(words.begin(), {"export", "Fish & [Chips]"});
    return tool(words);
  }
  /// It fails with one line that names the file and has that word in it.
  void expectRefused(const Outcome& outcome, const std::string& named, const char* word) const {
    EXPECT_EQ(outcome.status, 1) << outcome.err;
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    EXPECT_NE(outcome.err.find(named + ": "), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(word), std::string::npos) << outcome.err;
  }
  std::string file(const std::string& name) const { return m_folder.file(name); }
  std::size_t files() const {
    const std::filesystem::directory_iterator entries(m_folder.path());
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }

  test::ScratchFolder m_folder;
};

TEST_F(ExportCliTest, writesAllFormatsAtOnce) {
  const Outcome all = exportTo(
      {"--txt", file("a.txt"), "--musicxml", file("[a].musicxml"), "--midi", file("a.mid")});
  ASSERT_EQ(all.status, 0) << all.err;
  EXPECT_EQ(test::readFile(file("a.txt")), tool({"show", "Fish & [Chips]"}).out);
  const std::string score = test::readFile(file("[a].musicxml"));
  EXPECT_NE(score.find("<work-title>Fish &amp; [Chips]</work-title>"), std::string::npos);
  EXPECT_NE(score.find("<software>Korvel 0."), std::string::npos);
  EXPECT_NE(score.find("<encoding-date>20"), std::string::npos);
  EXPECT_TRUE(test::readFile(file("a.mid")).starts_with("MThd"));
  EXPECT_EQ(exportTo({"--musicxml", file("b.xml"), "--metric", "6/8"}).status, 0);
  EXPECT_NE(test::readFile(file("b.xml")).find("<beats>6</beats>"), std::string::npos);
  EXPECT_EQ(exportTo({}).status, 2);
  EXPECT_EQ(exportTo({"--musicxml", file("c.xml"), "--metric", "5/4"}).status, 2);
}

TEST_F(ExportCliTest, replacesFilesOnlyWhenTold) {
  test::writeFile(file("old.xml"), "old");
  const std::vector<std::string> words{"--txt", file("new.txt"), "--musicxml", file("old.xml")};
  expectRefused(exportTo(words), file("old.xml"), "--force");
  EXPECT_EQ(test::readFile(file("old.xml")), "old");
  EXPECT_FALSE(std::filesystem::exists(file("new.txt"))) << "all files or none";
  std::vector<std::string> forced = words;
  forced.push_back("--force");
  EXPECT_EQ(exportTo(forced).status, 0);
  EXPECT_NE(test::readFile(file("old.xml")), "old");
}

TEST_F(ExportCliTest, leavesOldFilesWholeWhenItCannotWrite) {
  test::writeFile(file("old.xml"), "old");
  const std::size_t before = files();
  const Outcome full = test::runProgram(
      {"/bin/sh", "-c",
       R"(ulimit -f 2; exec "$0" --store "$1" export "$2" --musicxml "$3" --force)", KORVEL_CLI,
       file("Korvel.sqlite"), "Fish & [Chips]", file("old.xml")});
  expectRefused(full, file("old.xml"), "make room");
  EXPECT_EQ(test::readFile(file("old.xml")), "old");
  // Nobody may write there, not even an administrator.
  expectRefused(exportTo({"--txt", "/sys/a.txt"}), "/sys/a.txt", "choose a folder");
  expectRefused(exportTo({"--txt", file("none/a.txt")}), file("none/a.txt"), "make it first");
  expectRefused(exportTo({"--txt", file(""), "--force"}), file(""), "name a file");
  expectRefused(exportTo({"--txt", ""}), "korvel-cli", "name a file");
  expectRefused(exportTo({"--txt", file("./Korvel.sqlite"), "--force"}), file("./Korvel.sqlite"),
                "holds songs");
  EXPECT_EQ(files(), before);
}

}  // namespace
}  // namespace korvel
