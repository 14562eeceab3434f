// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <thread>

#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using test::Outcome;

class RecordCliTest : public testing::Test {
 protected:
  RecordCliTest() { test::writeWav(m_wav, test::fewChords()); }

  std::vector<std::string> tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {"env", "XDG_DATA_HOME=" + m_folder.path().string(), KORVEL_CLI});
    return words;
  }
  Outcome run(const std::vector<std::string>& words) const { return test::runProgram(tool(words)); }
  std::vector<fs::path> takes() const {
    std::vector<fs::path> files;
    const fs::path folder = m_folder.path() / "korvel" / "takes";
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder, none)) files.push_back(entry.path());
    return files;
  }
  /// Until the program has recorded a second.
  void awaitTake() const {
    std::error_code none;
    for (int tries = 0; tries < 3000; ++tries) {
      if (!takes().empty() && fs::file_size(takes().front(), none) > 44100 * 4) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    FAIL() << "nothing is recorded";
  }

  test::ScratchFolder m_folder;
  std::string m_wav = m_folder.file("a [1].wav");
};

std::set<int> pitchClasses(const json& chord) {
  static constexpr int kOpen[] = {4, 9, 2, 7, 11, 4};
  std::set<int> pitches;
  for (const json& tone : chord["tones"])
    pitches.insert((kOpen[tone["string"].get<int>()] + tone["fret"].get<int>()) % 12);
  return pitches;
}

/// How many chords of a song have just these pitch classes, or at least them.
std::ptrdiff_t chordsOf(const json& song, const std::set<int>& pitches) {
  return std::ranges::count_if(song["chords"],
                               [&](const json& chord) { return pitchClasses(chord) == pitches; });
}
std::ptrdiff_t chordsWith(const json& song, const std::set<int>& pitches) {
  return std::ranges::count_if(song["chords"], [&](const json& chord) {
    return std::ranges::includes(pitchClasses(chord), pitches);
  });
}

TEST_F(RecordCliTest, hearsAFileAsAGuitarBothWays) {
  const Outcome live = run({"record", "--file", m_wav, "--fast", "--detection", "classic",
                            "--album", "A", "--title", "live"});
  ASSERT_EQ(live.status, 0) << live.err;
  EXPECT_NE(live.err.find("Stored as A/live."), std::string::npos) << live.err;
  EXPECT_TRUE(std::regex_search(live.out, std::regex("\n  1\\.1 s  [A-G]\\S* +[x0-9]{6}\n")))
      << live.out;
  EXPECT_NE(live.out.find("Recorded by Korvel"), std::string::npos);
  const std::string kept = m_folder.file("kept.wav");
  const Outcome precise = run({"record", "--file", m_wav, "--fast", "--wav", kept, "--album", "A",
                               "--title", "precise", "--tuning", "Standard"});
  ASSERT_EQ(precise.status, 0) << precise.err;
  EXPECT_EQ(run({"list"}).out, "A/live\nA/precise\n");
  const json heardLive = json::parse(run({"dump", "live"}).out);
  const json heardWhole = json::parse(run({"dump", "precise"}).out);
  EXPECT_GE(heardLive["chords"].size(), 28U) << "two for each block of the file";
  // Am, C and E. Live, each tone sounds an octave down, and its overtones join in.
  for (const std::set<int>& pitches : {std::set{9, 0, 4}, {0, 4, 7}, {4, 8, 11}})
    EXPECT_GE(chordsOf(heardWhole, pitches), 4) << *pitches.begin();
  EXPECT_GE(chordsWith(heardLive, {9, 4}), 8);
  EXPECT_GE(chordsWith(heardLive, {0, 4, 7}), 7);
  EXPECT_GE(chordsWith(heardLive, {4, 8, 11}), 5);
  EXPECT_TRUE(takes().empty());
  EXPECT_GE(fs::file_size(kept), 31U * 32768U);
  EXPECT_EQ(run({"record", "--file", m_wav, "--fast", "--wav", kept}).status, 1);
}

TEST_F(RecordCliTest, interruptedRecordingIsFinished) {
  test::Running recording(tool({"record", "--file", m_wav, "--title", "T"}));
  awaitTake();
  recording.interrupt();
  EXPECT_EQ(recording.wait(), 0);
  const json song = json::parse(run({"dump", "T"}).out);
  EXPECT_GE(song["chords"].size(), 2U);
  EXPECT_LT(song["chords"].size(), 16U) << "not the whole file";
  EXPECT_TRUE(takes().empty());
}

TEST_F(RecordCliTest, outlivesItsTerminalWhenToldTo) {
  std::vector<std::string> words = tool(
      {"record", "--file", m_wav, "--title", "T", "--detection", "classic", "--seconds", "2.5"});
  words.insert(words.begin(), "nohup");
  test::Running recording(words);
  awaitTake();
  recording.hangUp();
  EXPECT_EQ(recording.wait(), 0);
  EXPECT_GE(json::parse(run({"dump", "T"}).out)["chords"].size(), 12U) << "of 14";
}

TEST_F(RecordCliTest, takeOfAKilledProgramIsToldOfAndCanBeImported) {
  test::Running recording(tool({"record", "--file", m_wav}));
  awaitTake();
  recording.kill();
  EXPECT_EQ(recording.wait(), -1);
  ASSERT_EQ(takes().size(), 1U);
  const Outcome next = run({"record", "--file", m_wav, "--fast", "--seconds", "1"});
  EXPECT_EQ(next.status, 0);
  EXPECT_NE(next.err.find("korvel-cli: " + takes().front().string() + ": was left"),
            std::string::npos)
      << next.err;
  EXPECT_EQ(run({"import", takes().front(), "--title", "saved"}).status, 0);
  EXPECT_GE(chordsOf(json::parse(run({"dump", "saved"}).out), {9, 0, 4}), 2);
}

TEST_F(RecordCliTest, whatCannotBeRecordedIsSaidAndLeavesNothing) {
  const auto problem = [&](const std::string& file, const std::string& text) {
    const Outcome outcome = run({"record", "--file", file, "--fast", "--seconds", "2"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find(text), std::string::npos) << outcome.err;
    EXPECT_TRUE(takes().empty());
  };
  const std::string silence = m_folder.file("silence.wav");
  test::writeWav(silence, std::vector<std::int16_t>(100000));
  problem(silence, "korvel-cli: no tones were heard; nothing was stored\n");
  problem(m_folder.file("missing.wav"), "missing.wav: cannot read: No such file or directory\n");
  test::writeFile(silence, "text");
  problem(silence, "silence.wav: it is no WAV file");
  EXPECT_EQ(run({"list"}).out, "");
  EXPECT_EQ(run({"record", "--fast"}).status, 2);
  EXPECT_EQ(run({"record", "--file", m_wav, "--device", "USB"}).status, 2);
}

}  // namespace
}  // namespace korvel
