// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/files/Resources.h"
#include "support/FfmpegTool.h"
#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using nlohmann::json;
using test::Outcome;

class TranscribeCliTest : public testing::Test {
 protected:
  /// Half a second of silence, two chords and three notes.
  TranscribeCliTest() {
    test::writeWav(m_wav, test::play({{{}, 0.5},
                                      {test::notesOf("x32010"), 1.5},
                                      {test::notesOf("xx0232"), 1.5},
                                      {{60}, 0.5},
                                      {{62}, 0.5},
                                      {{38}, 0.5}}));
  }

  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", m_store});
    return test::runProgram(words);
  }
  json notes(std::vector<std::string> flags, const std::string& file) const {
    flags.insert(flags.begin(), {"transcribe", file});
    const Outcome outcome = tool(flags);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return json::parse(outcome.out).at("notes");
  }
  std::string file(const std::string& name) const { return m_folder.file(name); }

  test::ScratchFolder m_folder;
  std::string m_store = file("Korvel.sqlite");
  std::string m_wav = file("take [1].wav");
};

/// The shape of the notes that start about there.
std::string shapeAt(const json& notes, double seconds) {
  std::string shape(6, 'x');
  for (const json& note : notes)
    if (std::abs(note["onset"].get<double>() - seconds) < 0.05 && note["string"].is_number())
      shape.at(note["string"].get<std::size_t>()) =
          static_cast<char>('0' + note["fret"].get<int>());
  return shape;
}

TEST_F(TranscribeCliTest, printsTheNotesOfAnySound) {
  test::ffmpeg({"-i", "file:" + m_wav, "-ac", "2", "-ar", "48000", "file:" + file("a.m4a")});
  for (const std::string& sound : {m_wav, file("a.m4a")}) {
    const json found = notes({}, sound);
    EXPECT_EQ(shapeAt(found, 0.5), "x32010") << sound;
    EXPECT_EQ(shapeAt(found, 2), "xx0232") << sound;
    EXPECT_EQ(shapeAt(found, 3.5), "xxxx1x") << sound;
    EXPECT_EQ(shapeAt(found, 4), "xxxx3x") << sound;
    EXPECT_EQ(shapeAt(found, 4.5), "xxxxxx") << "lower than the guitar: " << sound;
    for (const json& note : found) {
      EXPECT_EQ(note.size(), 7U);
      EXPECT_LT(note["onset"], note["offset"]);
      EXPECT_TRUE(note["probability"] > 0.5 && note["probability"] <= 1) << note;
      EXPECT_GT(note["strength"], 0);
    }
  }
  const Outcome written = tool({"transcribe", m_wav, "--json", file("notes.json")});
  EXPECT_EQ(written.status, 0);
  EXPECT_EQ(written.out, "");
  EXPECT_EQ(test::readFile(file("notes.json")), tool({"transcribe", m_wav}).out);
  EXPECT_FALSE(std::filesystem::exists(m_store)) << "nothing is stored";
}

TEST_F(TranscribeCliTest, writesFilesForOtherPrograms) {
  const std::vector<std::string> words{"transcribe", m_wav,         "--midi",  file("a.mid"),
                                       "--musicxml", file("a.xml"), "--tempo", "120"};
  const Outcome written = tool(words);
  ASSERT_EQ(written.status, 0) << written.err;
  EXPECT_EQ(written.out, "");
  EXPECT_TRUE(test::readFile(file("a.mid")).starts_with("MThd"));
  const std::string score = test::readFile(file("a.xml"));
  EXPECT_NE(score.find("<work-title>take [1]</work-title>"), std::string::npos);
  EXPECT_NE(score.find("<sound tempo=\"120.00\"/>"), std::string::npos);
  EXPECT_NE(score.find("<type>half</type>"), std::string::npos) << "a second and a half";
  const Outcome again = tool(words);
  EXPECT_EQ(again.status, 1);
  EXPECT_NE(again.err.find("--force"), std::string::npos) << again.err;
  std::vector<std::string> forced = words;
  forced.push_back("--force");
  EXPECT_EQ(tool(forced).status, 0);
}

TEST_F(TranscribeCliTest, playsWhereItIsTold) {
  EXPECT_EQ(shapeAt(notes({"--position", "5"}, m_wav), 4), "xxx7xx");
  EXPECT_EQ(shapeAt(notes({"--capo", "2"}, m_wav), 3.5), "xxx5xx");
  EXPECT_EQ(shapeAt(notes({"--tuning", "Drop D"}, m_wav), 4.5), "0xxxxx");
}

TEST_F(TranscribeCliTest, leavesDoubtfulNotesOutWhenLessSensitive) {
  const auto demo = platform::Resources::ofProgram().locate("demo/First Steps", "ogg");
  ASSERT_TRUE(demo);
  const json sure = notes({"--sensitivity", "0"}, demo->string());
  const json probable = notes({}, demo->string());
  EXPECT_GT(sure.size(), 30U);
  EXPECT_LT(sure.size(), probable.size());
}

TEST_F(TranscribeCliTest, answersSilenceWithNoNotesAndFaultsWithOneLine) {
  test::writeWav(file("silence.wav"), std::vector<std::int16_t>(100000));
  EXPECT_EQ(notes({}, file("silence.wav")), json::array());
  for (const std::vector<std::string>& flags :
       {std::vector<std::string>{"transcribe", file("missing.wav")},
        {"transcribe", m_wav, "--tuning", "Open Q"},
        {"transcribe", m_wav, "--force", "--json", file("a"), "--midi", file("./a")},
        {"transcribe", m_wav, "--force", "--json", file("./take [1].wav")},
        {"transcribe", m_wav, "--json", file("no folder/a.json")}}) {
    const Outcome outcome = tool(flags);
    EXPECT_EQ(outcome.status, 1) << flags.back();
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
  }
  for (const auto& [flag, value] :
       std::vector<std::pair<std::string, std::string>>{{"--sensitivity", "1.1"},
                                                        {"--sensitivity", "nan"},
                                                        {"--tempo", "nan"},
                                                        {"--position", "0"},
                                                        {"--position", "close"},
                                                        {"--position", "25"},
                                                        {"--frets", "25"},
                                                        {"--frets", "11"},
                                                        {"--capo", "12"}})
    EXPECT_EQ(tool({"transcribe", m_wav, flag, value}).status, 2) << flag << value;
}

}  // namespace
}  // namespace korvel
