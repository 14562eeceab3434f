// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using Clock = std::chrono::steady_clock;

class KillTest : public testing::Test {
 protected:
  KillTest() { test::writeWav(m_recording, test::fewChords()); }

  std::vector<std::string> tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", m_store});
    return words;
  }
  std::vector<std::string> import(const std::string& title) const {
    return tool({"import", m_recording, "--album", "Live", "--title", title});
  }

  test::ScratchFolder m_folder;
  std::string m_store = m_folder.file("Korvel.sqlite");
  std::string m_recording = m_folder.file("a.wav");
};

// Killed at random moments between start and end, which the save is a part of: earlier songs stay,
// and the one that was under way is there whole or not at all.
TEST_F(KillTest, savedSongsSurviveWheneverTheProcessDies) {
  const auto start = Clock::now();
  ASSERT_EQ(test::runProgram(import("first")).status, 0);
  const std::chrono::duration<double> whole = Clock::now() - start;
  const std::string first = test::runProgram(tool({"dump", "first"})).out;
  std::mt19937 random(20);
  std::uniform_real_distribution<double> moment(0.0, 1.0);
  for (int i = 0; i < 20; ++i) {
    test::Running victim(import("victim"));
    std::this_thread::sleep_for(whole * moment(random));
    victim.kill();
    victim.wait();
    const test::Outcome check = test::runProgram(tool({"check"}));
    ASSERT_EQ(check.status, 0) << check.out << check.err;
    ASSERT_EQ(test::runProgram(tool({"dump", "Live/first"})).out, first);
    const std::string songs = test::runProgram(tool({"list"})).out;
    if (songs.find("Live/victim") == std::string::npos) continue;
    ASSERT_EQ(test::runProgram(tool({"show", "victim"})).status, 0);
    ASSERT_EQ(test::runProgram(tool({"delete", "victim"})).status, 0);
  }
}

}  // namespace
}  // namespace korvel
