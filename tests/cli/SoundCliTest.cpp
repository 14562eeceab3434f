// SPDX-License-Identifier: GPL-3.0-or-later
#include <future>

#include "cli/ToolFixture.h"
#include "support/sound/VirtualSoundCard.h"

namespace korvel {
namespace {

using test::eventually;
using test::Outcome;

struct SoundCliTest : test::ToolFixture {
  void SetUp() override { m_card.emplace(); }
  /// A guitar that plays into a card, for some ten seconds.
  test::Running guitarOn(const std::string& card) const {
    std::vector<std::int16_t> samples = test::fewChords();
    samples.reserve(2 * samples.size());
    samples.insert(samples.end(), samples.begin(), samples.end());
    test::writeWav(file("guitar.wav"), samples);
    test::Running guitar({"paplay", "--device=" + card, file("guitar.wav")});
    EXPECT_TRUE(eventually([&] { return m_card->isPlaying(); }));
    return guitar;
  }

  std::optional<test::VirtualSoundCard> m_card;
};

TEST_F(SoundCliTest, anUnpluggedMicrophoneLeavesWhatWasRecorded) {
  m_card->plug("amp", "Amp");
  test::Running guitar = guitarOn("amp");
  const std::string kept = file("kept.wav");
  std::future<Outcome> recording = std::async(std::launch::async, [&] {
    return tool({"record", "--device", "Monitor of Amp", "--wav", kept, "--title", "T"});
  });
  std::error_code none;
  const bool heard = eventually([&] {
    const auto size = std::filesystem::file_size(kept, none);
    return !none && size > 2 * 44100 * 4;
  });
  m_card->unplug("amp");
  const Outcome ended = recording.get();
  guitar.kill();
  guitar.wait();
  EXPECT_TRUE(heard);
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.err.find("korvel-cli: Monitor of Amp: the device is gone"), std::string::npos)
      << ended.err;
  EXPECT_GE(dump("T")["chords"].size(), 2U);
}

TEST_F(SoundCliTest, anUnpluggedLoudspeakerEndsThePlaying) {
  m_card->plug("amp", "Amp");
  ASSERT_EQ(tool({"import", m_wav, "--title", "Song", "--grid", "slices"}).status, 0);
  std::future<Outcome> playing = std::async(std::launch::async, [&] {
    return tool({"play", "Song", "--device", "Amp", "--loop", "1", "9"});
  });
  const bool played = eventually([&] { return m_card->isPlaying(); });
  m_card->unplug("amp");
  const Outcome ended = playing.get();
  EXPECT_TRUE(played);
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.err.find("korvel-cli: Amp: the sound device is gone"), std::string::npos)
      << ended.err;
  const Outcome again = tool({"play", "Song", "--device", "Amp"});
  EXPECT_EQ(again.status, 1);
  EXPECT_NE(again.err.find("korvel-cli: no sound output \"Amp\"; there is \"System default\", "
                           "\"Card\"\n"),
            std::string::npos)
      << again.err;
}

}  // namespace
}  // namespace korvel
