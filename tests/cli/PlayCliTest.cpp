// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"
#include "support/SoundFont.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

using test::Outcome;

constexpr std::size_t kBytesOfStep = 65536;

class PlayCliTest : public testing::Test {
 protected:
  PlayCliTest() {
    test::writeWav(file("a.wav"), test::fewChords());
    EXPECT_EQ(tool({"import", file("a.wav"), "--title", "Song", "--album", "Album"}).status, 0);
    m_filesAtFirst = files();
  }

  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", file("Korvel.sqlite")});
    return test::runProgram(words);
  }
  Outcome sound(std::vector<std::string> words) const {
    words.insert(words.end(), {"--soundfont", test::kSoundFont});
    return tool(words);
  }
  /// It fails with one line that names the file and has that word in it.
  static void expectRefused(const Outcome& outcome, const std::string& named, const char* word) {
    EXPECT_EQ(outcome.status, 1) << outcome.err;
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    EXPECT_NE(outcome.err.find(named + ": "), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(word), std::string::npos) << outcome.err;
  }
  std::string file(const std::string& name) const { return m_folder.file(name); }
  std::uintmax_t sizeOf(const std::string& name) const {
    return std::filesystem::file_size(file(name));
  }
  std::ptrdiff_t files() const {
    const std::filesystem::directory_iterator entries(m_folder.path());
    return std::distance(begin(entries), end(entries));
  }

  test::ScratchFolder m_folder;
  std::ptrdiff_t m_filesAtFirst;
};

TEST_F(PlayCliTest, rendersSongsLoopsAndRates) {
  auto rests = test::fewChords();
  rests.resize(rests.size() + 6 * 44100);
  const auto chords = test::fewChords();
  rests.insert(rests.end(), chords.begin(), chords.end());
  test::writeWav(file("rests.wav"), rests);
  ASSERT_EQ(sound({"render", "Song", file("whole.wav")}).status, 0);
  EXPECT_GT(sizeOf("whole.wav"), 15 * kBytesOfStep);
  EXPECT_EQ(tool({"import", file("whole.wav"), "--title", "Again", "--album", "Album"}).status, 0);
  const std::string again = tool({"show", "Again"}).out;
  for (const char* name : {"Am", "C", "E"}) EXPECT_NE(again.find(name), std::string::npos) << again;
  ASSERT_EQ(sound({"render", "Song", file("part.wav"), "--loop", "4", "3"}).status, 0);
  EXPECT_GT(sizeOf("part.wav"), 2 * kBytesOfStep);
  EXPECT_LT(sizeOf("part.wav"), 6 * kBytesOfStep);
  const std::uintmax_t part = sizeOf("part.wav");
  EXPECT_EQ(tool({"loop", "Song", "3", "4"}).status, 0);
  ASSERT_EQ(sound({"render", "Song", file("part.wav"), "--force"}).status, 0);
  EXPECT_EQ(sizeOf("part.wav"), part) << "the song's loop, which --loop had not stored";
  ASSERT_EQ(sound({"render", "Song", file("slow.wav"), "--rate", "0.5"}).status, 0);
  EXPECT_GT(sizeOf("slow.wav"), part + kBytesOfStep);
  EXPECT_EQ(tool({"import", file("rests.wav"), "--title", "Rests", "--album", "Album"}).status, 0);
  expectRefused(sound({"render", "Rests", file("none.wav"), "--loop", "24", "28"}), "Album/Rests",
                "nothing sounds");
  EXPECT_FALSE(std::filesystem::exists(file("none.wav")));
}

TEST_F(PlayCliTest, rendersAllOfAFileOrNothing) {
  test::writeFile(file("old.wav"), "old");
  test::writeFile(file("notes.sf2"), "Dear diary");
  const auto before = files();
  expectRefused(sound({"render", "Song", file("old.wav")}), file("old.wav"), "--force");
  expectRefused(tool({"render", "Song", file("b.wav"), "--soundfont", file("notes.sf2")}),
                file("notes.sf2"), "is no SoundFont");
  expectRefused(sound({"render", "Song", "/sys/b.wav"}), "/sys/b.wav", "choose a folder");
  expectRefused(sound({"render", "Song", file("b.wav"), "--loop", "1", "99"}), "Album/Song",
                "no chord 99");
  const Outcome full = test::runProgram(
      {"/bin/sh", "-c",
       R"(ulimit -f 500; exec "$0" --store "$1" export Song --wav "$2" --txt "$3" --force)",
       KORVEL_CLI, file("Korvel.sqlite"), file("old.wav"), file("b.txt")});
  expectRefused(full, file("old.wav"), "make room");
  EXPECT_EQ(test::readFile(file("old.wav")), "old");
  EXPECT_EQ(files(), before);
  EXPECT_EQ(sound({"render", "Song", file("b.wav"), "--rate", "nan"}).status, 2);
}

TEST_F(PlayCliTest, playsToTheEndAndTellsThePosition) {
  const Outcome played = sound({"play", "Song", "--rate", "4", "--file", file("played.wav")});
  EXPECT_EQ(played.status, 0) << played.err;
  EXPECT_EQ(played.out, "");
  EXPECT_TRUE(std::regex_match(played.err, std::regex("( [ 0-9][0-9]\\n){2,15}"))) << played.err;
  EXPECT_GT(sizeOf("played.wav"), 15 * kBytesOfStep / 4);
  expectRefused(sound({"play", "Song", "--file", file("played.wav")}), file("played.wav"),
                "--force");
  const test::NoSoundServer silence;
  expectRefused(sound({"play", "Song"}), "System default", "no sound server");
  expectRefused(tool({"play", "Song", "--soundfont", file("a.wav")}),
                "korvel-cli: " + file("a.wav"), "is no SoundFont");
}

TEST_F(PlayCliTest, playsAllIntoAFileOrNothing) {
  const Outcome full = test::runProgram(
      {"/bin/sh", "-c",
       R"(ulimit -f 300; exec "$0" --store "$1" play Song --rate 4 --file "$2" --soundfont "$3")",
       KORVEL_CLI, file("Korvel.sqlite"), file("full.wav"), test::kSoundFont});
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.err.find(file("full.wav") + ": cannot be written any further; nothing was "
                                             "written: make room"),
            std::string::npos)
      << full.err;
  expectRefused(sound({"play", "Song", "--file", "/sys/b.wav"}), "/sys/b.wav", "choose a folder");
  EXPECT_EQ(files(), m_filesAtFirst);
}

TEST_F(PlayCliTest, aLoopIsPlayedUntilCtrlC) {
  test::Running playing({KORVEL_CLI, "--store", file("Korvel.sqlite"), "play", "Song", "--loop",
                         "2", "3", "--file", file("loop.wav"), "--soundfont", test::kSoundFont});
  const auto isPlaying = [&] { return files() > m_filesAtFirst; };
  ASSERT_TRUE(test::eventually(isPlaying));
  playing.interrupt();
  playing.interrupt();
  EXPECT_EQ(playing.wait(), 0);
  EXPECT_EQ(files(), m_filesAtFirst + 1) << "what was played until then";
  EXPECT_EQ(tool({"dump", "Song"}).out.find("\"fromChord\": 2"), std::string::npos);
}

}  // namespace
}  // namespace korvel
