// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolFixture.h"
#include "support/SoundFont.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using test::Outcome;

struct SignalTest : test::ToolFixture {
  std::vector<fs::path> takes() const { return entriesOf("korvel/takes"); }
  void awaitTake() const {
    std::error_code none;
    ASSERT_TRUE(test::eventually([&] {
      return !takes().empty() && fs::file_size(takes().front(), none) > 44100 * 4;
    })) << "a second is recorded";
  }
};

TEST_F(SignalTest, interruptedRecordingIsFinished) {
  test::Running recording(command({"record", "--file", m_wav, "--title", "T"}));
  awaitTake();
  recording.interrupt();
  EXPECT_EQ(recording.wait(), 0);
  const json song = dump("T");
  EXPECT_GE(song["chords"].size(), 2U);
  EXPECT_LT(song["chords"].size(), 16U) << "not the whole file";
  EXPECT_TRUE(takes().empty());
}

TEST_F(SignalTest, outlivesItsTerminalWhenToldTo) {
  std::vector<std::string> words = command(
      {"record", "--file", m_wav, "--title", "T", "--detection", "classic", "--seconds", "2.5"});
  words.insert(words.begin(), "nohup");
  test::Running recording(words);
  awaitTake();
  recording.hangUp();
  EXPECT_EQ(recording.wait(), 0);
  EXPECT_GE(dump("T")["chords"].size(), 12U) << "of 14";
}

TEST_F(SignalTest, takeOfAKilledProgramIsToldOfAndCanBeImported) {
  test::Running recording(command({"record", "--file", m_wav}));
  awaitTake();
  recording.kill();
  EXPECT_EQ(recording.wait(), -1);
  ASSERT_EQ(takes().size(), 1U);
  const Outcome next = tool({"record", "--file", m_wav, "--fast", "--seconds", "1"});
  EXPECT_EQ(next.status, 0);
  EXPECT_NE(next.err.find("korvel-cli: " + takes().front().string() + ": was left"),
            std::string::npos)
      << next.err;
  EXPECT_EQ(tool({"import", takes().front(), "--title", "saved"}).status, 0);
  const json saved = dump("saved")["chords"];
  EXPECT_GE(std::ranges::count_if(saved, [](const json& chord) { return chord["name"] == "Am"; }),
            2);
}

TEST_F(SignalTest, aLoopIsPlayedUntilCtrlC) {
  EXPECT_EQ(tool({"import", m_wav, "--title", "Song"}).status, 0);
  const std::size_t filesAtFirst = entriesOf("").size();
  test::Running playing(command({"play", "Song", "--loop", "2", "3", "--file", file("loop.wav"),
                                 "--soundfont", test::kSoundFont}));
  ASSERT_TRUE(test::eventually([&] { return entriesOf("").size() > filesAtFirst; }));
  playing.interrupt();
  playing.interrupt();
  EXPECT_EQ(playing.wait(), 0);
  EXPECT_EQ(entriesOf("").size(), filesAtFirst + 1) << "what was played until then";
  EXPECT_EQ(dump("Song")["fromChord"], nullptr);
}

}  // namespace
}  // namespace korvel
