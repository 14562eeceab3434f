// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "support/Process.h"
#include "support/ScratchFolder.h"
#include "support/VirtualSoundCard.h"

namespace korvel {
namespace {

using test::Outcome;

class SoundCliTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::VirtualSoundCard::isInstalled()) GTEST_SKIP() << "left out: no pulseaudio here";
    m_card.emplace();
  }
  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", m_store});
    return test::runProgram(words);
  }

  test::ScratchFolder m_folder;
  const std::string m_store = m_folder.file("Korvel.sqlite");
  std::optional<test::VirtualSoundCard> m_card;
};

TEST_F(SoundCliTest, devicesAreListedByName) {
  m_card->plug("amp", "Twin Amp");
  const Outcome listed = tool({"devices"});
  EXPECT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out,
            "Outputs\n  System default\n  Card\n  Twin Amp\n"
            "Inputs\n  System default\n  Monitor of Card\n  Monitor of Twin Amp\n");
  EXPECT_FALSE(std::filesystem::exists(m_store)) << "devices need no songs";
}

TEST_F(SoundCliTest, withoutASoundServerItSaysWhatToDo) {
  const test::NoSoundServer silence;
  const Outcome listed = tool({"devices"});
  EXPECT_EQ(listed.status, 1);
  EXPECT_EQ(listed.out, "");
  EXPECT_EQ(listed.err,
            "korvel-cli: no sound server can be reached and there is no sound card; start "
            "PipeWire, PulseAudio or JACK, or plug a device in\n");
}

}  // namespace
}  // namespace korvel
