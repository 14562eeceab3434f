// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/TabTextReader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/text/UserError.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"

namespace korvel::exchange {
namespace {

constexpr std::int64_t kGrainsOfTick = kGrainsOfQuarter / 12;

std::string headOf(const Piece& piece) {
  std::ostringstream head;
  const Track& track = piece.tracks.front();
  if (!piece.title.empty()) head << piece.title << ". ";
  if (!piece.tempos.empty()) head << "tempo=" << piece.tempos.front().quartersAMinute << ' ';
  if (track.capo > 0) head << "capo=" << track.capo << ' ';
  if (track.open != std::vector{40, 45, 50, 55, 59, 64})
    for (const int pitch : track.open) head << pitch << ' ';
  for (const auto& [what, count] : piece.left) head << what << '=' << count << ' ';
  return head.str();
}

/// Bars of chords as "x02210", their lengths in twelfths of a quarter where these change.
std::string written(const Piece& piece) {
  std::map<std::int64_t, std::pair<std::string, std::int64_t>> chords;
  for (const Note& note : piece.tracks.front().notes) {
    auto& [frets, length] = chords.try_emplace(note.at, "xxxxxx", note.length).first->second;
    frets.at(static_cast<std::size_t>(note.string)) = "0123456789abcdefghijklmno"[note.fret];
    EXPECT_EQ(length, note.length);
  }
  std::map<std::int64_t, std::string> names;
  for (const ChordName& name : piece.tracks.front().names) names[name.at] = name.text;
  std::ostringstream text;
  std::int64_t now = 0, last = 0;
  std::size_t bar = 0;
  const auto say = [&](const std::string& frets, std::int64_t length) {
    const auto name = names.find(now);
    text << (name == names.end() ? "" : name->second + ":") << frets;
    if (length != last) text << '*' << static_cast<double>(length) / kGrainsOfTick;
    text << ' ';
    last = length;
    now += length;
  };
  const auto barLines = [&] {
    for (; bar < piece.bars.size() && piece.bars[bar].at <= now; ++bar) {
      const Bar& next = piece.bars[bar];
      const Bar before = bar > 0 ? piece.bars[bar - 1] : Bar();
      if (bar > 0) text << "| ";
      if (next.beats != before.beats || next.beatType != before.beatType)
        text << next.beats << '/' << next.beatType << ' ';
    }
  };
  for (const auto& [at, chord] : chords) {
    for (barLines(); now < at; barLines())
      say("r", std::min(at, bar < piece.bars.size() ? piece.bars[bar].at : at) - now);
    barLines();
    say(chord.first, chord.second);
  }
  const std::int64_t end = piece.bars.empty() ? 0 : piece.bars.back().at + piece.bars.back().length;
  barLines();
  while (now < end) {
    say("r", (bar < piece.bars.size() ? piece.bars[bar].at : end) - now);
    barLines();
  }
  return headOf(piece) + text.str();
}

std::string read(const std::string& text) {
  try {
    EXPECT_TRUE(looksLikeTab(text));
    std::string answer = written(readTabText(text));
    return answer.substr(0, answer.find_last_not_of(' ') + 1);
  } catch (const platform::UserError& error) {
    return std::string("! ") + error.what();
  }
}

/// Files have tabs behind "=== name", each ended by "--- " and what is read.
TEST(TabTextReaderTest, readsTabsAsPeopleWriteThem) {
  for (const auto& file : std::filesystem::directory_iterator(KORVEL_TEST_DATA "/tabs")) {
    std::ifstream lines(file.path());
    std::string name, tab, expected;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("=== ")) {
        name = line;
        tab.clear();
      } else if (line.starts_with("--- ")) {
        EXPECT_EQ(read(tab), line.substr(4)) << file.path().filename() << ' ' << name << '\n'
                                             << tab;
      } else {
        tab += line + (name.ends_with(" crlf") ? "\r\n" : "\n");
      }
    }
  }
}

TEST(TabTextReaderTest, readsTextOfTwoBytesACharacter) {
  const std::string tab = "e|--0-2-|\nB|------|\nG|------|\nD|------|\nA|------|\nE|------|\n";
  std::string low = "\xFF\xFE", high = "\xFE\xFF";
  for (const char c : tab) low += {c, '\0'}, high += {'\0', c};
  const std::string narrow = read(tab);
  EXPECT_FALSE(narrow.starts_with("!")) << narrow;
  EXPECT_EQ(read(low), narrow);
  EXPECT_EQ(read(high), narrow);
}

/// A song of triplets, ties, rests, a pick-up and other metres, and its text.
TEST(TabTextReaderTest, readsWhatTheProgramWrote) {
  const test::StandardStore store;
  QBSong* song = store.song("Capo 3, drop D");
  test::beatSong(song,
                 "3/4 xxxx1x e xxxx3x e | 1xxxx5 q xxxx6x q rq | Am:x02210 e3 e3 e3 q ~e s s | rq "
                 "xxx2xx h | 4/4 xx0232 h ~q. aaxxxx e | 2/4 xx2xxx e. s xx4xxx q | 6/8 C:x32010 "
                 "t12 t4 t4 t4 |");
  EXPECT_EQ(read(toStringForExport(*song)),
            "Capo 3, drop D. 3/4 xxxx1x*6 xxxx3x | 1xxxx5*12 xxxx6x r | Am:x02210*4 x02210 x02210 "
            "x02210*18 x02210*3 x02210 | r*12 xxx2xx*24 | 4/4 xx0232*42 aaxxxx*6 | 2/4 xx2xxx*9 "
            "xx2xxx*3 xx4xxx*12 | 6/8 C:x32010*18 x32010*6 x32010 x32010");
}

}  // namespace
}  // namespace korvel::exchange
