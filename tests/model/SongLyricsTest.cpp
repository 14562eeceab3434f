// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/SongLyrics.h"

#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// Whatever is sung, and pasted, is read as it was written, and writing that again changes nothing.
TEST(SongLyrics, wordsAreReadAsTheyWereWritten) {
  const test::StandardStore store;
  QBSong& song = *store.song("S");
  static constexpr std::array kParts{"la",    " ",        "\n",   "\t",   "Müße", "\x01", "-",
                                     "don't", "\xc2\x85", "\xff", "12\t", "歌",   ""};
  std::mt19937 random(7);
  for (int run = 0; run < 300; ++run) {
    std::vector<SungWords> words;
    std::set<int> ticks;
    for (auto count = random() % 6; count > 0; --count) {
      SungWords& each = words.emplace_back();
      each.tick = static_cast<int>(random() % 9) * 6 - 12;
      for (auto parts = random() % 5; parts > 0; --parts)
        each.text += kParts[random() % kParts.size()];
    }
    setLyrics(song, words);
    const std::vector<SungWords> read = lyricsOf(song);
    for (const SungWords& each : read) {
      EXPECT_TRUE(ticks.insert(each.tick).second) << "once a place";
      EXPECT_NE(each.text, "");
      EXPECT_EQ(each.text.find_first_of("\n\t\x01\xff"), std::string::npos);
      EXPECT_EQ(each.text.find("  "), std::string::npos);
      EXPECT_TRUE(each.text.front() != ' ' && each.text.back() != ' ') << each.text;
      EXPECT_TRUE(std::ranges::any_of(words, [&](const auto& w) { return w.tick == each.tick; }));
    }
    EXPECT_TRUE(std::ranges::is_sorted(read, {}, &SungWords::tick));
    const std::string stored = song.lyrics();
    setLyrics(song, read);
    EXPECT_EQ(song.lyrics(), stored);
    EXPECT_EQ(lyricsOf(song), read);
  }
}

}  // namespace
}  // namespace korvel
