// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/SongPage.h"

#include <algorithm>

#include "arrange/harmony/Parser.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "tab/chordpro/ChordProReader.h"
#include "tab/chordpro/ChordProText.h"
#include "tab/page/CapoTable.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageSections.h"
#include "tab/page/PageText.h"

namespace korvel {
namespace {

using test::Words;

/// Bars as letters, capital ones of one chord: those of a section, and how often it is played.
std::string folded(const Words& words) {
  const std::string letters = words[0];
  std::vector<int> bars;
  for (const char letter : letters) bars.push_back(letter >= 'a' ? letter : -letter);
  std::string text;
  for (const FoldedBars& each : foldedBars(bars))
    text += (text.empty() ? "" : " ") + std::to_string(each.kind) + ':' +
            letters.substr(each.first, each.count) + '*' + std::to_string(each.times);
  return text;
}

/// The words before "--", which are options, and the file behind it, its lines divided by ";".
struct Sheet {
  explicit Sheet(const Words& words) {
    const auto end = std::ranges::find(words, "--");
    for (auto word = words.begin(); word != end; ++word) tell(*word);
    std::string text = words.textFrom(static_cast<std::size_t>(end - words.begin()) + 1);
    std::ranges::replace(text, ';', '\n');
    read = readChordPro(QBTabMgr::db(), text);
  }

  void tell(const std::string& word) {
    const int number =
        word.find('=') == std::string::npos ? 0 : std::stoi(word.substr(word.find('=') + 1));
    if (word.starts_with("capo=")) options.capo = number;
    if (word.starts_with("up=")) options.halfTones = number;
    if (word == "roman") options.numbers = ChordNumbers::roman;
    if (word == "nashville") options.numbers = ChordNumbers::nashville;
    options.leftHanded = word == "left" || options.leftHanded;
  }

  SongPage page() const { return pageOf(read.song, options); }

  PageOptions options;
  ReadChordPro read;
};

/// Without the grips.
std::string page(const Words& words) {
  SongPage page = Sheet(words).page();
  page.grips.clear();
  std::string text = pageText(page);
  text.pop_back();
  return text;
}

/// What comes out of a file that comes out of this one must be the same.
std::string chordPro(const Words& words) {
  const std::string text = chordProOf(Sheet(words).page());
  const SongPage again = pageOf(readChordPro(QBTabMgr::db(), text).song);
  EXPECT_EQ(chordProOf(again), text);
  return text.substr(0, text.size() - 1);
}

std::string grips(const Words& words) {
  std::string text;
  for (const PageGrip& grip : Sheet(words).page().grips)
    text += (text.empty() ? "" : " ") + grip.name + '=' + shorthandOf(grip.frets) + '@' +
            std::to_string(grip.baseFret) + (grip.barre ? "-" : "");
  return text;
}

std::string capo(const Words& words) {
  const auto table = capoTable(Sheet(words).read.song);
  std::string text;
  for (const CapoChoice& each : table)
    text += std::to_string(each.openNames) + '/' + std::to_string(each.names) + ' ';
  return text + "best " + std::to_string(bestCapo(table));
}

/// Words typed below eight bars.
std::string typed(const Words& words) {
  PageSource song =
      readChordPro(QBTabMgr::db(), "{sog}\n| C . . . | % | % | % |\n| %% | %% |").song;
  std::string text = words.textFrom(0);
  std::ranges::replace(text, ';', '\n');
  for (const SungWords& each : readLyrics(text, song)) song.words.push_back({each.tick, each.text});
  text = lyricsText(song);
  return text.substr(0, text.size() - 1);
}

TEST(SongPageTest, isLaidOutAsWritten) {
  const test::StandardStore store;
  Parser(QBTabMgr::db(), KORVEL_TEST_DATA "/../../resources/ChordDeclarations").parseHarmonies();
  QBTabMgr::db().loadHarmonies();
  test::expectScript("tab/pages.txt", {{"fold", folded},
                                       {"page", page},
                                       {"pro", chordPro},
                                       {"grips", grips},
                                       {"capo", capo},
                                       {"typed", typed}});
}

}  // namespace
}  // namespace korvel
