// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include "model/store/KorvelModel.h"
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

// A process that does nothing but save is killed in the middle of one: every song in the store is
// complete, and none that was there before is lost.
TEST_F(KillTest, aSaveHappensWholeOrNotAtAll) {
  std::mt19937 random(21);
  std::uniform_int_distribution<int> milliseconds(30, 300);
  ASSERT_EQ(test::runProgram(tool({"list"})).status, 0);
  std::int64_t songsBefore = 0;
  int slowness = 1;  // of a sanitized build or a busy machine
  for (int i = 0; i < 20; ++i) {
    test::Running victim({KORVEL_SAVE_LOOP, m_store});
    std::this_thread::sleep_for(std::chrono::milliseconds(slowness * milliseconds(random)));
    victim.kill();
    victim.wait();
    const auto store = storeFile(m_store).open();
    ASSERT_TRUE(platform::StoreFile::problems(*store).empty());
    const std::int64_t songs = store->integer("SELECT count(*) FROM QBSong");
    EXPECT_GE(songs, songsBefore);
    EXPECT_EQ(store->integer("SELECT count(*) FROM QBChord"), songs * 300);
    EXPECT_EQ(store->integer("SELECT count(*) FROM QBTone"), songs * 300 * 6);
    if (songs == songsBefore && slowness < 16) slowness *= 2;
    songsBefore = songs;
  }
  EXPECT_GT(songsBefore, 0) << "the victim was never given time to save";
}

// Edits change positions of hundreds of chords at once, and take deletions back: whenever the
// process dies, the song has all its chords in order, each with its grip.
TEST_F(KillTest, anEditHappensWholeOrNotAtAll) {
  std::mt19937 random(22);
  std::uniform_int_distribution<int> milliseconds(30, 300);
  ASSERT_EQ(test::runProgram(tool({"list"})).status, 0);
  std::int64_t lastBefore = 0;
  std::int64_t chordsBefore = 0;
  int slowness = 1;
  for (int i = 0; i < 20; ++i) {
    test::Running victim({KORVEL_SAVE_LOOP, m_store, "edit"});
    std::this_thread::sleep_for(std::chrono::milliseconds(slowness * milliseconds(random)));
    victim.kill();
    victim.wait();
    const auto store = storeFile(m_store).open();
    ASSERT_TRUE(platform::StoreFile::problems(*store).empty());
    const std::int64_t chords = store->integer("SELECT count(*) FROM QBChord");
    // A deletion of three may have been saved that was not taken back any more, or an insertion
    // whose chord was not deleted yet.
    const std::int64_t expected = chordsBefore == 0 && chords > 0 ? 300 : chordsBefore;
    EXPECT_TRUE(chords >= expected - 3 && chords <= expected + 1) << chords << " of " << expected;
    chordsBefore = chords;
    EXPECT_EQ(store->integer("SELECT count(DISTINCT position) FROM QBChord"), chords);
    EXPECT_EQ(store->integer("SELECT max(position) FROM QBChord"), chords);
    EXPECT_EQ(store->integer("SELECT count(DISTINCT chord) FROM QBHold"), chords);
    EXPECT_EQ(store->integer("SELECT count(*) FROM QBTone WHERE hold IS NULL"), 0);
    const std::int64_t last = store->integer("SELECT max(id) FROM QBChord");
    EXPECT_GE(last, lastBefore);
    if (last == lastBefore && slowness < 16) slowness *= 2;
    lastBefore = last;
  }
  EXPECT_GT(lastBefore, 300) << "the victim was never given time to edit";
}

}  // namespace
}  // namespace korvel
