// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

using nlohmann::json;
using test::eventually;
using test::Outcome;

class SoundCliTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::VirtualSoundCard::isInstalled()) GTEST_SKIP() << "left out: no pulseaudio here";
    m_card.emplace();
  }
  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {"env", "XDG_DATA_HOME=" + m_folder.path().string(), KORVEL_CLI});
    return test::runProgram(words);
  }

  json dump(const std::string& song) const { return json::parse(tool({"dump", song}).out); }
  /// A guitar that plays into a card, for some ten seconds.
  test::Running guitarOn(const std::string& card) const {
    std::vector<std::int16_t> samples = test::fewChords();
    samples.reserve(2 * samples.size());
    samples.insert(samples.end(), samples.begin(), samples.end());
    test::writeWav(m_folder.file("guitar.wav"), samples);
    test::Running guitar({"paplay", "--device=" + card, m_folder.file("guitar.wav")});
    EXPECT_TRUE(eventually([&] { return m_card->isPlaying(); }));
    return guitar;
  }

  test::ScratchFolder m_folder;
  std::optional<test::VirtualSoundCard> m_card;
};

TEST_F(SoundCliTest, devicesAreListedByName) {
  m_card->plug("amp", "Twin Amp");
  const Outcome listed = tool({"devices"});
  EXPECT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out,
            "Outputs\n  System default\n  Card\n  Twin Amp\n"
            "Inputs\n  System default\n  Monitor of Card\n  Monitor of Twin Amp\n");
  EXPECT_FALSE(std::filesystem::exists(m_folder.file("korvel"))) << "devices need no songs";
}

TEST_F(SoundCliTest, withoutASoundServerItSaysWhatToDo) {
  const test::NoSoundServer silence;
  for (const auto& words : {std::vector<std::string>{"devices"}, {"record", "--seconds", "1"}}) {
    const Outcome outcome = tool(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "korvel-cli: no sound server can be reached and there is no sound card; start "
              "PipeWire, PulseAudio or JACK, or plug a device in\n");
  }
  EXPECT_EQ(tool({"list"}).out, "");
}

/// What was heard at each time of a recording.
std::map<int, json> tonesByTime(const json& song) {
  std::map<int, json> chords;
  for (const json& chord : song["chords"]) chords[chord["timestamp"]] = chord["tones"];
  return chords;
}

TEST_F(SoundCliTest, aCardIsHeardAsTheFileOfItsSoundIs) {
  test::Running guitar = guitarOn("card");
  const std::string kept = m_folder.file("kept.wav");
  const Outcome live = tool({"record", "--device", "Monitor of Card", "--seconds", "4", "--wav",
                             kept, "--detection", "classic", "--title", "live"});
  guitar.kill();
  guitar.wait();
  ASSERT_EQ(live.status, 0) << live.err;
  ASSERT_EQ(tool({"record", "--file", kept, "--detection", "classic", "--title", "file"}).status,
            0);
  const auto heardLive = tonesByTime(dump("live")), heardInFile = tonesByTime(dump("file"));
  ASSERT_GE(heardLive.size(), 15U);
  const std::set<int> ends{heardLive.begin()->first, heardLive.rbegin()->first,
                           heardInFile.begin()->first, heardInFile.rbegin()->first};
  int alike = 0;
  for (const auto& [time, tones] : heardLive) {
    if (ends.contains(time)) continue;
    ASSERT_TRUE(heardInFile.contains(time)) << time;
    EXPECT_EQ(heardInFile.at(time), tones) << time;
    ++alike;
  }
  EXPECT_GE(alike, 13);
}

TEST_F(SoundCliTest, anUnpluggedMicrophoneLeavesWhatWasRecorded) {
  m_card->plug("amp", "Amp");
  test::Running guitar = guitarOn("amp");
  const std::string kept = m_folder.file("kept.wav");
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
  EXPECT_GE(dump("T")["chords"].size(), 5U);
}

TEST_F(SoundCliTest, anUnpluggedLoudspeakerEndsThePlaying) {
  m_card->plug("amp", "Amp");
  test::writeWav(m_folder.file("a.wav"), test::fewChords());
  ASSERT_EQ(tool({"import", m_folder.file("a.wav"), "--title", "Song"}).status, 0);
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
