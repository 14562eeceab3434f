// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ChordProReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

#include "music/Pitch.h"
#include "music/Ticks.h"
#include "platform/text/Blanks.h"
#include "tab/chordpro/ReadNames.h"

namespace korvel {
namespace {

using platform::trimmed;
using Chord = PageSource::Chord;

/// Longer files are no songs.
constexpr std::size_t kMostBarsRead = 20000;
constexpr int kMostTimes = 100;

/// A bar while a file is read; places are ticks from its beginning.
struct ReadBar {
  int beat = 4;
  int beattype = 4;
  int ticks = 0;
  std::vector<Chord> chords;
  std::vector<PageSource::Words> words;
};

std::vector<std::string> wordsIn(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::optional<double> numberIn(std::string_view text) {
  double number = 0;
  const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

/// What "x3", "3x" or "(x3)" behind a repeat says; twice without a word.
int timesIn(const std::vector<std::string>& margin) {
  for (const std::string& word : margin) {
    std::string digits;
    for (const char letter : word)
      if (letter >= '0' && letter <= '9') digits += letter;
    const bool isTimes = word.find('x') != std::string::npos && !digits.empty();
    if (isTimes) return std::clamp(static_cast<int>(*numberIn(digits)), 1, kMostTimes);
  }
  return 2;
}

/// A line of a grid: bar lines, cells between them, and what stands behind the last one.
struct GridLine {
  struct Bar {
    bool beginsRepeat = false;  ///< The bar line before it.
    bool endsRepeat = false;    ///< The one behind it.
    std::vector<std::string> cells;
  };

  std::vector<Bar> bars;
  std::vector<std::string> margin;
};

bool isOfBarLine(char letter) { return letter == '|' || letter == ':'; }

/// Takes a bar line off the front, such as "|:" or "|." or "|2".
std::string takeBarLine(std::string_view& text) {
  std::size_t end = 0;
  while (end < text.size() && isOfBarLine(text[end])) ++end;
  const bool hasMore =
      end < text.size() && (text[end] == '.' || (text[end] >= '0' && text[end] <= '9'));
  const bool isSign = hasMore && (end + 1 == text.size() || text[end + 1] == ' ');
  const std::string line(text.substr(0, end));
  text.remove_prefix(isSign ? end + 1 : end);
  return line;
}

GridLine gridLineOf(std::string_view text) {
  GridLine line;
  bool isIn = false;  // what stands before the first bar line is a margin
  while (!(text = trimmed(text)).empty()) {
    if (!isOfBarLine(text.front())) {
      std::size_t end = 0;
      while (end < text.size() && !isOfBarLine(text[end]) && text[end] != ' ' && text[end] != '\t')
        ++end;
      if (isIn) line.bars.back().cells.emplace_back(text.substr(0, end));
      text.remove_prefix(end);
      continue;
    }
    const std::string sign = takeBarLine(text);
    if (isIn && sign.starts_with(':')) line.bars.back().endsRepeat = true;
    isIn = true;
    line.bars.push_back({sign.ends_with(':') && sign != ":", false, {}});
  }
  if (!line.bars.empty()) {
    line.margin = line.bars.back().cells;
    line.bars.pop_back();
  }
  return line;
}

class Reader {
 public:
  explicit Reader(const QBTabMgr& db) : m_names(db) {}

  void line(std::string_view text) {
    const std::string_view content = trimmed(text);
    if (content.starts_with('#') || m_bars.size() > kMostBarsRead) return;
    if (content.starts_with('{'))
      directive(content.substr(1, content.find('}') - 1));
    else if (content.empty() || !m_skipped.empty())
      return;
    else if (m_inGrid)
      gridLine(gridLineOf(content));
    else
      sungLine(content);
  }

  ReadChordPro result() {
    endSection();
    ReadChordPro read;
    read.song = m_song;
    if (m_hasChords) lay(read.song);
    read.unknown = m_names.unknown();
    return read;
  }

 private:
  int ticksOfWholeBar() const { return ticksOfBar(m_beat, m_beattype); }

  // ---- directives

  void directive(std::string_view text) {
    const auto end = text.find_first_of(": \t");
    std::string name(text.substr(0, end));
    std::ranges::transform(name, name.begin(), [](char letter) {
      return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    std::string_view value = end == std::string_view::npos ? "" : trimmed(text.substr(end + 1));
    if (value.starts_with(':')) value = trimmed(value.substr(1));
    tell(name, value);
    section(name, value);
  }

  void tell(const std::string& name, std::string_view value) {
    if (name == "title" || name == "t")
      m_song.title = value;
    else if (name == "artist" || ((name == "subtitle" || name == "st") && m_song.artist.empty()))
      m_song.artist = value;
    else if (name == "key")
      tellKey(value);
    else if (name == "capo")
      m_song.capo = static_cast<int>(std::clamp(numberIn(value).value_or(0), 0.0, 11.0));
    else if (name == "tempo")
      m_song.tempo = std::clamp(numberIn(value).value_or(0), 0.0, 1000.0);
    else if (name == "time")
      tellTime(value);
    else if (name == "define" || name == "chord")
      define(wordsIn(value));
  }

  void tellKey(std::string_view value) {
    std::string_view root = value.substr(0, value.find_first_of(" m"));
    const auto note = noteOfName(root);
    if (!note) return;
    const std::string_view mode = trimmed(value.substr(root.size()));
    const bool isMinor = mode.starts_with('m') && !mode.starts_with("maj");
    m_song.key = *note + (isMinor ? kNotesPerOctave : 0);
  }

  void tellTime(std::string_view value) {
    const auto slash = value.find('/');
    const auto beat = numberIn(value);
    const auto type =
        slash == std::string_view::npos ? std::nullopt : numberIn(value.substr(slash + 1));
    if (!beat || !type || *beat < 1 || *beat > 24) return;
    const int beattype = static_cast<int>(*type);
    if (beattype != 2 && beattype != 4 && beattype != 8 && beattype != 16) return;
    endBar();
    m_beat = static_cast<int>(*beat);
    m_beattype = beattype;
  }

  /// "Am base-fret 1 frets x 0 2 2 1 0 fingers ..."
  void define(const std::vector<std::string>& words) {
    const auto frets = std::ranges::find(words, "frets");
    if (words.empty() || std::distance(frets, words.end()) <= kStrings) return;
    int base = 1;
    if (const auto at = std::ranges::find(words, "base-fret"); words.end() - at > 1)
      base = static_cast<int>(std::clamp(numberIn(*(at + 1)).value_or(1), 1.0, 20.0));
    ChordShape shape;
    for (std::size_t s = 0; s < shape.size(); ++s) {
      const auto fret = numberIn(*(frets + 1 + static_cast<std::ptrdiff_t>(s)));
      const int told = fret && *fret >= 0 && *fret <= 24 ? static_cast<int>(*fret) : kNotPlayed;
      shape[s] = told > 0 ? told + base - 1 : told;
    }
    m_names.define(words.front(), shape);
  }

  void section(const std::string& name, std::string_view value) {
    static const std::set<std::string> kNoSongs{"tab", "abc", "ly", "svg", "textblock"};
    if (name == "x_korvel_beats") return tellLengths(value);
    if (name == "x_korvel_cells") {
      m_cellsOfBeat = static_cast<int>(std::clamp(numberIn(value).value_or(0), 0.0, 12.0));
      return;
    }
    if (name == "chorus") return repeatChorus();
    const std::string begun = sectionOf(name, "start_of_", "so");
    const std::string ended = sectionOf(name, "end_of_", "eo");
    if (begun.empty() && ended.empty()) return;
    endSection();
    if (kNoSongs.contains(begun)) m_skipped = begun;
    if (ended == m_skipped) m_skipped.clear();
    m_inGrid = begun == "grid";
    if (begun == "chorus") m_chorusFrom = m_bars.size();
    if (ended == "chorus") m_chorus = {m_chorusFrom, m_bars.size()};
    m_repeatFrom = m_bars.size();
  }

  /// "verse" for "start_of_verse" and "sov"; "" for all else.
  static std::string sectionOf(const std::string& name, const std::string& longWay,
                               const std::string& shortWay) {
    if (name.starts_with(longWay)) return name.substr(longWay.size());
    if (name.size() != shortWay.size() + 1 || !name.starts_with(shortWay)) return {};
    for (const char* each : {"verse", "chorus", "bridge", "tab", "grid"})
      if (each[0] == name.back()) return each;
    return {};
  }

  void tellLengths(std::string_view value) {
    m_lengths.clear();
    for (const std::string& word : wordsIn(value)) {
      const double beats = std::clamp(numberIn(word).value_or(0), 0.0, 1000.0);
      m_lengths.push_back(std::max(1, static_cast<int>(std::lround(beats * kTicksOfBeat))));
    }
    std::ranges::reverse(m_lengths);
  }

  void repeatChorus() {
    endSection();
    for (std::size_t at = m_chorus.first; at < m_chorus.second; ++at) {
      const ReadBar bar = m_bars[at];
      m_bars.push_back(bar);
    }
  }

  void endSection() {
    endBar();
    m_inGrid = false;
    m_lengths.clear();
    m_cellsOfBeat = 0;
  }

  // ---- lines of words

  void sungLine(std::string_view text) {
    addWords(wordsOfPart(text));
    while (!text.empty()) {
      const auto open = text.find('[');
      const auto close = open == std::string_view::npos ? open : text.find(']', open);
      if (close == std::string_view::npos) return;
      addChord(text.substr(open + 1, close - open - 1));
      text.remove_prefix(close + 1);
      addWords(wordsOfPart(text));
    }
  }

  /// What stands before the next bracket; with a hyphen where that is inside of a word.
  static std::string wordsOfPart(std::string_view text) {
    const auto open = text.find('[');
    std::string words(text.substr(0, open));
    if (open == std::string_view::npos || words.empty()) return words;
    const auto behind = text.find(']', open);
    const bool goesOn = behind != std::string_view::npos && behind + 1 < text.size() &&
                        isLetterOfWord(text[behind + 1]);
    if (goesOn && isLetterOfWord(words.back())) words += '-';
    return words;
  }

  void addWords(std::string_view text) {
    text = trimmed(text);
    if (text.empty()) return;
    if (m_bars.empty() && !m_isOpen) {
      m_early += (m_early.empty() ? "" : " ") + std::string(text);
      return;
    }
    ReadBar& bar = m_isOpen ? m_open : m_bars.back();
    const int tick = bar.chords.empty() ? 0 : bar.chords.back().tick;
    bar.words.push_back({tick, std::string(text)});
  }

  /// What stands in brackets: an annotation is none.
  void addChord(std::string_view name) {
    if (name.starts_with('*') || m_bars.size() > kMostBarsRead) return;
    auto chord = m_names.chordOf(name);
    if (!chord) return;
    if (m_lengths.empty()) {
      endBar();
      openBar();
      chord->ticks = ticksOfWholeBar();
      m_open.chords.push_back(*chord);
      m_open.ticks = chord->ticks;
      keepEarly();
      return endBar();
    }
    if (m_isOpen && m_isFull) endBar();
    if (!m_isOpen) openBar();
    chord->tick = m_open.ticks;
    chord->ticks = m_lengths.back();
    m_lengths.pop_back();
    m_open.ticks += chord->ticks;
    m_open.chords.push_back(*chord);
    keepEarly();
    m_isFull = m_open.ticks >= ticksOfWholeBar();
  }

  void keepEarly() {
    m_hasChords = true;
    if (!m_early.empty()) m_open.words.push_back({0, std::exchange(m_early, {})});
  }

  void openBar() {
    m_open = ReadBar{m_beat, m_beattype, 0, {}, {}};
    m_isOpen = true;
    m_isFull = false;
  }

  void endBar() {
    if (m_isOpen) m_bars.push_back(std::move(m_open));
    m_isOpen = false;
    m_isFull = false;
  }

  // ---- grids

  void gridLine(const GridLine& line) {
    for (const GridLine::Bar& bar : line.bars) {
      if (bar.beginsRepeat) m_repeatFrom = m_bars.size();
      gridBar(bar.cells);
      if (!bar.endsRepeat) continue;
      const std::size_t end = m_bars.size();
      const int times = timesIn(line.margin);
      for (int time = 1; time < times; ++time)
        for (std::size_t at = m_repeatFrom; at < end && m_bars.size() < kMostBarsRead; ++at) {
          const ReadBar again = m_bars[at];
          m_bars.push_back(again);
        }
      m_repeatFrom = m_bars.size();
    }
  }

  void gridBar(const std::vector<std::string>& cells) {
    if (cells.empty() || m_bars.size() > kMostBarsRead) return;
    if (cells.front() == "%" || cells.front() == "%%") return repeatBars(cells.front().size());
    openBar();
    const int count = static_cast<int>(cells.size());
    m_open.ticks = m_cellsOfBeat > 0 ? count * kTicksOfBeat / m_cellsOfBeat : ticksOfWholeBar();
    for (int cell = 0; cell < count; ++cell)
      gridCell(cells[static_cast<std::size_t>(cell)], m_open.ticks * cell / count,
               m_open.ticks * (cell + 1) / count);
    if (m_open.chords.empty() || m_open.chords.front().tick > 0) goOnFromBefore();
    keepEarly();
    endBar();
  }

  /// A point is a beat on which the chord goes on.
  void gridCell(const std::string& cell, int from, int to) {
    std::vector<Chord> chords;
    for (std::size_t at = 0; at <= cell.size();) {
      const std::size_t end = std::min(cell.find('~', at), cell.size());
      const std::string name = cell.substr(at, end - at);
      const bool isPoint = name.empty() || name == "." || name == "/" || name.starts_with('*');
      const auto chord = isPoint ? std::nullopt : m_names.chordOf(name);
      if (chord) chords.push_back(*chord);
      at = end + 1;
    }
    const int count = static_cast<int>(chords.size());
    for (int i = 0; i < count; ++i) {
      chords[static_cast<std::size_t>(i)].tick = from + (to - from) * i / count;
      m_open.chords.push_back(chords[static_cast<std::size_t>(i)]);
    }
  }

  void goOnFromBefore() {
    Chord before;
    if (!m_bars.empty() && !m_bars.back().chords.empty()) before = m_bars.back().chords.back();
    before.tick = 0;
    m_open.chords.insert(m_open.chords.begin(), before);
  }

  void repeatBars(std::size_t count) {
    if (m_bars.size() < count) return;
    const std::size_t from = m_bars.size() - count;
    for (std::size_t i = 0; i < count; ++i) {
      ReadBar again = m_bars[from + i];
      again.words.clear();
      m_bars.push_back(std::move(again));
    }
  }

  // ---- the whole

  /// Bars one behind the other; of the first one what is missing lies before the first bar line.
  void lay(PageSource& song) const {
    song.isInBars = true;
    const int whole = ticksOfBar(m_bars.front().beat, m_bars.front().beattype);
    const bool isPickUp = m_bars.size() > 1 && m_bars.front().ticks < whole;
    int tick = isPickUp ? -m_bars.front().ticks : 0;
    int number = isPickUp ? 0 : 1;
    for (const ReadBar& bar : m_bars) {
      const int full = ticksOfBar(bar.beat, bar.beattype);
      const int ticks = number == 0 ? bar.ticks : full;
      for (const Chord& chord : bar.chords)
        if (chord.tick < ticks) add(song, chord, tick);
      for (const PageSource::Words& words : bar.words)
        song.words.push_back({tick + std::min(words.tick, ticks - 1), words.text});
      song.bars.push_back({tick, ticks, bar.beat, bar.beattype, number++});
      tick += ticks;
    }
    for (std::size_t i = 0; i < song.chords.size(); ++i)
      song.chords[i].ticks =
          (i + 1 < song.chords.size() ? song.chords[i + 1].tick : tick) - song.chords[i].tick;
    soundAsPlayed(song);
  }

  static void add(PageSource& song, Chord chord, int bar) {
    chord.tick += bar;
    if (!song.chords.empty()) {
      const Chord& last = song.chords.back();
      if (last.root == chord.root && last.type == chord.type && last.bass == chord.bass) return;
    }
    song.chords.push_back(std::move(chord));
  }

  /// Names and shapes are those of what is played behind the capo.
  static void soundAsPlayed(PageSource& song) {
    if (song.key)
      song.key =
          pitchClass(*song.key + song.capo) + (*song.key >= kNotesPerOctave ? kNotesPerOctave : 0);
    for (Chord& chord : song.chords) {
      std::optional<ChordShape> shape = chord.shape;
      chord = movedChord(chord, song.capo);
      if (shape)
        for (int& fret : *shape)
          if (fret != kNotPlayed) fret += song.capo;
      chord.shape = shape;
    }
  }

  ReadNames m_names;
  PageSource m_song;
  std::vector<ReadBar> m_bars;
  ReadBar m_open;
  bool m_isOpen = false;
  bool m_isFull = false;
  bool m_hasChords = false;
  bool m_inGrid = false;
  std::string m_skipped;  ///< The section whose lines are no chords.
  std::string m_early;    ///< Words before the first chord.
  int m_beat = 4;
  int m_beattype = 4;
  int m_cellsOfBeat = 0;       ///< 0 when the cells of a grid fill its bars.
  std::vector<int> m_lengths;  ///< Ticks of the next chords, the last one first.
  std::size_t m_chorusFrom = 0;
  std::pair<std::size_t, std::size_t> m_chorus{};
  std::size_t m_repeatFrom = 0;
};

}  // namespace

ReadChordPro readChordPro(const QBTabMgr& db, std::string_view text) {
  Reader reader(db);
  while (!text.empty()) {
    const auto end = text.find('\n');
    reader.line(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return reader.result();
}

bool isChordPro(std::string_view text) {
  if (text.find("{start_of_grid") != std::string_view::npos ||
      text.find("{sog") != std::string_view::npos)
    return true;
  for (auto at = text.find('['); at != std::string_view::npos; at = text.find('[', at + 1)) {
    const std::string_view rest = text.substr(at + 1);
    const auto end = rest.find_first_of("]\n");
    constexpr std::size_t kLongestName = 12;
    if (end == std::string_view::npos || end == 0 || end > kLongestName || rest[end] != ']')
      continue;
    constexpr std::string_view kOfNames = "ABCDEFGH#bmajdinsugM0123456789+-/()";
    const bool isName = rest.substr(0, end).find_first_not_of(kOfNames) == std::string_view::npos;
    if (isName && rest.front() >= 'A' && rest.front() <= 'H') return true;
  }
  return false;
}

}  // namespace korvel
