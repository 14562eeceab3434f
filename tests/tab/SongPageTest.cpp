// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/SongPage.h"

#include <algorithm>

#include "arrange/harmony/Parser.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
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

/// Songs of any metres, with words here and there.
class RandomSheet {
 public:
  explicit RandomSheet(unsigned seed) : m_random(seed) {
    song.isInBars = true;
    song.title = "Gr\u00f6\u00dfe";
    song.tempo = 40 + below(100);
    song.capo = below(3) ? 0 : below(11);
    song.key = below(24);
    for (int bars = 1 + below(24); bars > 0; --bars) addBar();
    for (std::size_t i = 0; i < song.chords.size(); ++i)
      song.chords[i].ticks =
          (i + 1 < song.chords.size() ? song.chords[i + 1].tick : m_tick) - song.chords[i].tick;
  }

  PageSource song;

 private:
  int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }

  void addBar() {
    constexpr int kMetres[][2] = {{4, 4}, {4, 4}, {3, 4}, {6, 8}, {7, 8}, {2, 2}, {5, 4}, {12, 8}};
    if (song.bars.empty() || below(5) == 0) m_metre = below(8);
    const auto& [beat, beattype] = kMetres[m_metre];
    const int ticks = ticksOfBar(beat, beattype);
    song.bars.push_back(
        {m_tick, ticks, beat, beattype, static_cast<int>(std::ssize(song.bars)) + 1});
    for (int tick = 0; tick < ticks; tick += 1 + below(ticks)) addChord(m_tick + tick);
    m_tick += ticks;
  }

  void addChord(int tick) {
    constexpr const char* kTypes[] = {"", "m", "7", "maj7", "m7b5", "sus4"};
    PageSource::Chord chord;
    chord.tick = tick;
    chord.root = below(9) || tick == 0 ? below(kNotesPerOctave) : -1;
    if (chord.root >= 0) chord.type = kTypes[below(6)];
    if (chord.root >= 0 && below(6) == 0) chord.bass = pitchClass(chord.root + 1 + below(11));
    const bool isOther = song.chords.empty() || !isCalledAlike(song.chords.back(), chord);
    if (isOther) song.chords.push_back(chord);
    if ((isOther || tick == m_tick) && below(4) == 0)
      song.words.push_back({tick, below(3) ? "la" : "oh [yes], 7: {no} #1"});
  }

  std::mt19937 m_random;
  int m_tick = 0;
  int m_metre = 0;
};

/// All that a file tells of a song: its head, bars, and what sounds and is sung when.
std::string told(const PageSource& song, int end) {
  std::ostringstream text;
  text << song.title << ' ' << song.capo << ' ' << song.tempo << ' ' << song.key.value_or(-1);
  for (const auto& bar : song.bars)
    if (bar.tick < end) text << " |" << bar.tick << ' ' << bar.beat << '/' << bar.beattype;
  for (const auto& chord : song.chords)
    if (chord.tick < end)
      text << ' ' << chord.tick << ':' << chord.root << chord.type << '/' << chord.bass;
  for (const auto& words : song.words) text << ' ' << words.tick << ' ' << words.text;
  return text.str();
}

struct SongPageTest : testing::Test {
  SongPageTest() {
    Parser(QBTabMgr::db(), KORVEL_TEST_DATA "/../../resources/ChordDeclarations").parseHarmonies();
    QBTabMgr::db().loadHarmonies();
  }

  const test::StandardStore m_store;
};

TEST_F(SongPageTest, isLaidOutAsWritten) {
  test::expectScript("tab/pages.txt", {{"fold", folded},
                                       {"page", page},
                                       {"pro", chordPro},
                                       {"grips", grips},
                                       {"capo", capo},
                                       {"typed", typed}});
}

/// Behind another capo it sounds the same. Signs that mean something in a file become others; bars
/// before the first chord and behind the last one are left out.
TEST_F(SongPageTest, chordProFilesTellTheWholeSong) {
  for (unsigned seed = 0; seed < 300 && !HasFailure(); ++seed) {
    PageSource song = RandomSheet(seed).song;
    PageOptions options;
    if (seed % 2) options.capo = song.capo = static_cast<int>(seed % 12);
    const std::string file = chordProOf(pageOf(song, options));
    const PageSource read = readChordPro(QBTabMgr::db(), file).song;
    for (PageSource::Words& words : song.words)
      if (words.text != "la") words.text = "oh (yes), 7: (no) #1";
    const int end = read.bars.empty() ? 0 : read.bars.back().tick + read.bars.back().ticks;
    EXPECT_EQ(told(read, end), told(song, end)) << seed << '\n' << file;
  }
}

TEST_F(SongPageTest, readsFilesInTheLettersOfAnyProgram) {
  const std::string text = "{title: Gr\u00f6\u00dfe}\n[C]sch\u00f6n [G]f\u00fcr\n";
  const std::string western =
      "{title: Gr\xF6\xDF"
      "e}\n[C]sch\xF6n [G]f\xFCr\n";
  std::string low = "\xFF\xFE", high = "\xFE\xFF";
  for (const char c : western) low += {c, '\0'}, high += {'\0', c};
  const auto pageOfFile = [](const std::string& file) {
    EXPECT_TRUE(isChordPro(file));
    return chordProOf(pageOf(readChordPro(QBTabMgr::db(), file).song));
  };
  EXPECT_NE(pageOfFile(text).find("{title: Gr\u00f6\u00dfe}"), std::string::npos);
  for (const std::string& file : {"\xEF\xBB\xBF" + text, western, low, high})
    EXPECT_EQ(pageOfFile(file), pageOfFile(text));
  const PageSource song = readChordPro(QBTabMgr::db(), text).song;
  EXPECT_EQ(readLyrics("\xEF\xBB\xBF"
                       "2: f\xFCr",
                       song)
                .at(0)
                .tick,
            song.bars.at(1).tick);
}

TEST_F(SongPageTest, chordProThatRepeatsMoreThanASongHoldsIsCut) {
  std::string line = "|: A";
  for (int i = 0; i < 5000; ++i) line += "~B~A";
  std::string text = "{sog}\n";
  for (int i = 0; i < 20; ++i) text += line + " :| x100\n";
  EXPECT_LT(readChordPro(QBTabMgr::db(), text).song.chords.size(), 200000U);
}

}  // namespace
}  // namespace korvel
