// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolFixture.h"
#include "model/store/KorvelModel.h"

namespace korvel {
namespace {

using Clock = std::chrono::steady_clock;

struct KillTest : test::ToolFixture {
  std::vector<std::string> import(const std::string& title) const {
    return command({"import", m_wav, "--album", "Live", "--title", title});
  }
};

// Killed at random moments between start and end, which the save is a part of: earlier songs stay,
// and the one that was under way is there whole or not at all.
TEST_F(KillTest, savedSongsSurviveWheneverTheProcessDies) {
  const auto start = Clock::now();
  ASSERT_EQ(test::runProgram(import("first")).status, 0);
  const std::chrono::duration<double> whole = Clock::now() - start;
  const std::string first = tool({"dump", "first"}).out;
  std::mt19937 random(20);
  std::uniform_real_distribution<double> moment(0.0, 1.0);
  for (int i = 0; i < 20; ++i) {
    test::Running victim(import("victim"));
    std::this_thread::sleep_for(whole * moment(random));
    victim.kill();
    victim.wait();
    const test::Outcome check = tool({"check"});
    ASSERT_EQ(check.status, 0) << check.out << check.err;
    ASSERT_EQ(tool({"dump", "Live/first"}).out, first);
    const std::string songs = tool({"list"}).out;
    if (songs.find("Live/victim") == std::string::npos) continue;
    ASSERT_EQ(tool({"show", "victim"}).status, 0);
    ASSERT_EQ(tool({"delete", "victim"}).status, 0);
  }
}

// Edits change positions of hundreds of chords at once, and take deletions back: whenever the
// process dies, the song has all its chords in order, each with its grip.
TEST_F(KillTest, anEditHappensWholeOrNotAtAll) {
  std::mt19937 random(21);
  std::uniform_int_distribution<int> milliseconds(30, 300);
  ASSERT_EQ(tool({"list"}).status, 0);
  std::int64_t chordsBefore = 0;
  std::int64_t newestBefore = 0;
  int slowness = 1;  // of a sanitized build or a busy machine
  for (int i = 0; i < 20; ++i) {
    test::Running victim({KORVEL_SAVE_LOOP, m_store});
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
    const std::int64_t newest = store->integer("SELECT max(id) FROM QBChord");
    EXPECT_GE(newest, newestBefore);
    if (newest == newestBefore && slowness < 16) slowness *= 2;
    newestBefore = newest;
  }
  EXPECT_GT(newestBefore, 300) << "the victim was never given time to save";
}

}  // namespace
}  // namespace korvel
