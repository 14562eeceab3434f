// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "model/store/KorvelModel.h"
#include "support/FfmpegTool.h"
#include "support/Guitar.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using nlohmann::json;
using test::Outcome;

class CliTest : public testing::Test {
 protected:
  Outcome tool(std::vector<std::string> words) const {
    words.insert(words.begin(), {KORVEL_CLI, "--store", m_store});
    return test::runProgram(words);
  }
  /// A recording of three chords, converted by ffmpeg unless it is a plain WAV.
  std::string recording(const std::string& name, std::vector<std::string> options = {}) const {
    const std::string wav = m_folder.file("source.wav");
    test::writeWav(wav, test::fewChords());
    options.insert(options.begin(), {"-i", wav});
    options.push_back(m_folder.file(name));
    test::ffmpeg(options);
    return m_folder.file(name);
  }
  static auto lines(const std::string& text) { return std::ranges::count(text, '\n'); }

  test::ScratchFolder m_folder;
  std::string m_store = m_folder.file("Korvel.sqlite");
};

TEST_F(CliTest, importsStoresAndShowsASong) {
  const Outcome import = tool({"import", recording("Käse [take, 1].mp3")});
  ASSERT_EQ(import.status, 0) << import.err;
  EXPECT_NE(import.out.find("Recorded by Korvel"), std::string::npos);
  EXPECT_EQ(import.err,
            "(1/3) importing file .....\n(2/3) scanning chords .....\n.. scanning chords.\n"
            "(3/3) building tabulature .....\nSong successfully imported.\n");
  EXPECT_EQ(tool({"list"}).out, "Käse [take, 1]/Käse [take, 1]\n");
  EXPECT_EQ(tool({"show", "Käse [take, 1]"}).out, import.out);
  EXPECT_EQ(tool({"check"}).status, 0);
  const std::string copy = m_folder.file("copy.sqlite");
  EXPECT_EQ(tool({"backup", copy}).status, 0);
  EXPECT_EQ(tool({"backup", copy}).status, 1) << "an older backup is not replaced";
  m_store = copy;
  EXPECT_EQ(tool({"show", "Käse [take, 1]"}).out, import.out);
}

TEST_F(CliTest, detectsTheChordsThatWerePlayedAtOnceAndStepByStep) {
  const std::string file = recording("a.wav");
  const Outcome import = tool({"import", file, "--json"});
  ASSERT_EQ(import.status, 0) << import.err;
  json song = json::parse(import.out);
  EXPECT_EQ(json::parse(tool({"dump", "a"}).out), song) << "what was stored is what was printed";
  EXPECT_EQ(song["album"], "a");
  EXPECT_EQ(song["tuning"], "Standard");
  EXPECT_EQ(song["fromChord"], nullptr);
  EXPECT_EQ(song["chords"][0]["position"], 1);
  EXPECT_EQ(song["chords"][0]["groupNumber"], nullptr);
  for (const char* name : {"Am", "C", "E"})
    EXPECT_GE(std::ranges::count_if(song["chords"],
                                    [&](const json& chord) { return chord["name"] == name; }),
              3)
        << name << " in " << song["chords"].size();
  const Outcome stepped = tool({"import", file, "--json", "--album", "Y", "--stepped"});
  ASSERT_EQ(stepped.status, 0) << stepped.err;
  song["album"] = "Y";
  EXPECT_EQ(json::parse(stepped.out), song);
}

TEST_F(CliTest, importsAsItIsTold) {
  const std::string file = recording("a.wav", {"-ac", "2", "-ar", "48000"});
  const auto frets = [&](const std::vector<std::string>& flags) {
    std::vector<std::string> words{"import", file, "--json"};
    words.insert(words.end(), flags.begin(), flags.end());
    const Outcome import = tool(words);
    EXPECT_EQ(import.status, 0) << import.err;
    const json song = json::parse(import.out);
    std::set<int> found;
    for (const json& chord : song["chords"])
      for (const json& tone : chord["tones"]) found.insert(tone["fret"].get<int>());
    return found;
  };
  EXPECT_TRUE(std::ranges::includes(frets({}), std::set{0, 1, 2, 3})) << "at any rate, in stereo";
  EXPECT_NE(frets({"--detection", "classic"}), frets({}));
  EXPECT_GE(*frets({"--capo", "2"}).begin(), 2);
  EXPECT_GE(*frets({"--position", "9", "--frets", "14"}).rbegin(), 7);
  for (const std::vector<std::string>& flags : {std::vector<std::string>{"--detection", "exact"},
                                                {"--detection", "classic", "--capo", "2"},
                                                {"--position", "14"},
                                                {"--sensitivity", "x"}}) {
    std::vector<std::string> words{"import", file};
    words.insert(words.end(), flags.begin(), flags.end());
    EXPECT_EQ(tool(words).status, 2) << flags.front();
  }
}

TEST_F(CliTest, namesAreMadeUniqueAndAmbiguousOnesRefused) {
  const std::string file = recording("a.wav");
  EXPECT_EQ(tool({"import", file, file}).status, 0);
  EXPECT_EQ(tool({"import", file, "--album", "Mine", "--title", "a"}).status, 0);
  EXPECT_EQ(tool({"import", file, "--album", "Mine", "--title", "a"}).status, 0);
  EXPECT_EQ(tool({"list"}).out, "a/a\na_2/a_2\nMine/a\nMine/a_2\n");
  const Outcome ambiguous = tool({"show", "a"});
  EXPECT_EQ(ambiguous.status, 1);
  EXPECT_NE(ambiguous.err.find("\"a/a\", \"Mine/a\""), std::string::npos) << ambiguous.err;
  EXPECT_EQ(tool({"delete", "Mine/a"}).status, 0);
  EXPECT_EQ(tool({"show", "a"}).status, 0);
  EXPECT_NE(tool({"show", "A_"}).err.find("a_2/a_2"), std::string::npos);
  EXPECT_EQ(tool({"import", file, "--album", "X", "--title", "a/a"}).status, 0);
  EXPECT_EQ(tool({"show", "a/a"}).status, 0) << "the whole name of one song, a title of another";
  EXPECT_EQ(tool({"rename", "X/a/a", "two\nlines"}).out, "X/two\\nlines\n");
  EXPECT_TRUE(tool({"list"}).out.ends_with("X/two\\nlines\n"));
}

TEST_F(CliTest, tuningOfAnImportIsNotKept) {
  const Outcome import = tool({"import", recording("a.wav"), "--tuning", "Drop D", "--json"});
  ASSERT_EQ(import.status, 0) << import.err;
  EXPECT_EQ(json::parse(import.out)["tuning"], "Drop D");
  const std::string text = m_folder.file("a tab.txt");
  EXPECT_EQ(tool({"export", "a", "--txt", text}).status, 0);
  EXPECT_EQ(test::readFile(text), tool({"show", "a"}).out) << "drawn for the song's own tuning";
  EXPECT_EQ(tool({"tunings"}).out, "* Standard (EBGDAE)\n  Drop D (EBGDAD)\n");
  const Outcome unknown = tool({"import", recording("b.wav"), "--tuning", "Open Q"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_NE(unknown.err.find("Drop D"), std::string::npos);
}

TEST_F(CliTest, addsAndSelectsTunings) {
  EXPECT_EQ(tool({"tunings", "add", "Open G"}).out, "Open G\n");
  EXPECT_EQ(tool({"tunings", "add", "--strings", "D2", "A2", "D3", "G3", "A3", "D4", "--name",
                  "[Celtic]"})
                .out,
            "[Celtic]\n");
  EXPECT_EQ(tool({"tunings", "select", "Open G"}).status, 0);
  const std::string tunings =
      "  Standard (EBGDAE)\n  Drop D (EBGDAD)\n* Open G (DBGDBG)\n  [Celtic] (DAGDAD)\n";
  EXPECT_EQ(tool({"tunings"}).out, tunings);
  const auto refused = [&](std::vector<std::string> words, const char* why) {
    words.insert(words.begin(), {"tunings", "add"});
    const Outcome outcome = tool(words);
    return outcome.status == 1 && lines(outcome.err) == 1 &&
           outcome.err.find(why) != std::string::npos;
  };
  EXPECT_TRUE(refused({"Open Q"}, "Open G"));
  EXPECT_TRUE(refused({"Open G", "--name", "Standard"}, "of that name already"));
  EXPECT_TRUE(refused({"--strings", "D2", "A2", "D3", "G3", "A3", "H4", "--name", "X"}, "H4"));
  EXPECT_TRUE(
      refused({"--strings", "D2", "A2", "D3", "G3", "A3", "D5", "--name", "X"}, "String 1"));
  EXPECT_EQ(tool({"tunings", "add"}).status, 2);
  EXPECT_EQ(tool({"tunings"}).out, tunings);
}

TEST_F(CliTest, calibratesExportsAndImportsInstruments) {
  std::vector<test::Strum> strums;
  for (const int note : {40, 45, 50, 55, 59, 64})
    strums.insert(strums.end(), {{{}, 0.5}, {{note}, 1.5}});
  const std::string notes = m_folder.file("notes.wav");
  test::writeWav(notes, test::play(strums));
  const Outcome calibrated = tool({"instruments", "calibrate", notes, "--name", "Mine"});
  ASSERT_EQ(calibrated.status, 0) << calibrated.err;
  EXPECT_EQ(lines(calibrated.out), 6);
  EXPECT_TRUE(calibrated.out.starts_with("E2  -")) << calibrated.out;
  EXPECT_NE(calibrated.err.find("B4"), std::string::npos) << "what is missing is said";
  const std::string definition = m_folder.file("mine.xml");
  EXPECT_EQ(tool({"instruments", "export", "Mine", definition}).status, 0);
  EXPECT_EQ(tool({"instruments", "export", "Classic E-Guitar", definition}).status, 1)
      << "is there";
  EXPECT_EQ(tool({"instruments", "import", definition}).out, "Mine#2\n");
  const std::string again = m_folder.file("again.xml");
  EXPECT_EQ(tool({"instruments", "export", "Mine#2", again}).status, 0);
  EXPECT_EQ(test::readFile(again), test::readFile(definition));
  EXPECT_EQ(tool({"instruments", "select", "Mine"}).status, 0);
  EXPECT_EQ(tool({"instruments"}).out, "  Classic E-Guitar\n* Mine\n  Mine#2\n");
  EXPECT_EQ(tool({"instruments", "select", "Yours"}).status, 1);
  EXPECT_EQ(tool({"instruments", "import", notes}).status, 1);
  EXPECT_EQ(tool({"instruments", "calibrate", recording("a.wav"), "--name", "X"}).status, 1);
}

TEST_F(CliTest, badFilesEndInOneClearLineAndLeaveNothing) {
  const auto make = [&](const std::string& name, const std::string& content) {
    test::writeFile(m_folder.file(name), content);
    return m_folder.file(name);
  };
  std::filesystem::create_directory(m_folder.file("folder.wav"));
  const std::string silence = m_folder.file("silence.wav");
  test::writeWav(silence, std::vector<std::int16_t>(100000));
  const std::string film = m_folder.file("film.mp4");
  test::ffmpeg({"-f", "lavfi", "-i", "testsrc=duration=1:size=64x64", film});
  const std::string bad[] = {m_folder.file("missing.mp3"),
                             m_folder.file("folder.wav"),
                             make("empty.wav", ""),
                             make("letter.mp3", std::string(5000, 'a') + "\n"),
                             make("header only.wav", test::readFile(silence).substr(0, 44)),
                             silence,
                             film};
  for (const std::string& file : bad) {
    const Outcome import = tool({"import", file});
    EXPECT_EQ(import.status, 1) << file;
    const std::string last = import.err.substr(import.err.rfind("korvel-cli: "));
    EXPECT_NE(last.find(file), std::string::npos) << import.err;
    EXPECT_EQ(lines(last), 1) << import.err;
  }
  const std::string surround = recording("surround.wav", {"-ac", "6"});
  EXPECT_EQ(tool({"import", surround, "--detection", "classic"}).status, 1) << "one stream of six";
  EXPECT_EQ(tool({"list"}).out, "");
}

TEST_F(CliTest, oneBadFileDoesNotStopTheOthers) {
  const Outcome both = tool({"import", m_folder.file("no.wav"), recording("yes.wav"), "--json"});
  EXPECT_EQ(both.status, 1);
  EXPECT_EQ(json::parse(both.out).size(), 1U);
  EXPECT_EQ(tool({"list"}).out, "yes/yes\n");
}

TEST_F(CliTest, storeThatCannotBeOpenedIsNamedAndLeftAlone) {
  test::writeFile(m_store, std::string(200, 'z'));
  const Outcome foreign = tool({"list"});
  EXPECT_EQ(foreign.status, 255);
  EXPECT_NE(foreign.err.find(m_store), std::string::npos);
  EXPECT_EQ(lines(foreign.err), 1);
  EXPECT_EQ(test::readFile(m_store), std::string(200, 'z'));
  std::filesystem::remove(m_store);
  std::filesystem::create_symlink("ring", m_folder.file("ring"));
  const std::string lost = m_folder.file("ring/Korvel.sqlite");
  for (const char* command : {"list", "check"}) {
    const Outcome unreachable = test::runProgram({KORVEL_CLI, "--store", lost, command});
    EXPECT_NE(unreachable.err.find(lost + ": cannot be reached: "), std::string::npos) << command;
    EXPECT_EQ(lines(unreachable.err), 1);
  }
  ASSERT_EQ(tool({"list"}).status, 0);
  const auto open = storeFile(m_store).open();
  const Outcome second = tool({"list"});
  EXPECT_EQ(second.status, 255);
  EXPECT_NE(second.err.find("in use"), std::string::npos);
}

TEST_F(CliTest, wrongUsageEndsWithTwo) {
  EXPECT_EQ(tool({}).status, 2);
  EXPECT_EQ(tool({"import"}).status, 2);
  EXPECT_EQ(tool({"sing"}).status, 2);
  EXPECT_EQ(tool({"import", "a", "b", "--title", "T"}).status, 2);
  EXPECT_EQ(tool({"import", "a", "--album", ""}).status, 2);
  EXPECT_EQ(tool({"--help"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(m_store)) << "wrong usage makes nothing";
  EXPECT_EQ(tool({"check"}).status, 1);
  EXPECT_EQ(tool({"show", "x"}).status, 1);
  EXPECT_FALSE(std::filesystem::exists(m_store)) << "a store is not made by looking at it";
}

}  // namespace
}  // namespace korvel
