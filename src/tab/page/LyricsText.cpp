// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/LyricsText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "music/Ticks.h"
#include "platform/text/Blanks.h"
#include "platform/text/ForeignText.h"
#include "tab/page/SongPage.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr char kBarLine = '|';

template <class Number>
std::optional<Number> takeNumber(std::string_view& text) {
  Number number{};
  const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(behind - text.data()));
  return number;
}

bool take(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

/// "9:" or "9+2.5:" in front of a line.
struct BarOfLine {
  int number;
  double beats;
};

std::optional<BarOfLine> takeBar(std::string_view& line) {
  std::string_view rest = line;
  const auto number = takeNumber<int>(rest);
  if (!number || *number < 0) return std::nullopt;
  double beats = 0;
  if (take(rest, '+')) {
    const auto told = takeNumber<double>(rest);
    if (!told || !(*told >= 0) || *told > 1000) return std::nullopt;
    beats = *told;
  }
  if (!take(rest, ':')) return std::nullopt;
  line = rest;
  return BarOfLine{*number, beats};
}

class LyricsReader {
 public:
  explicit LyricsReader(const PageSource& song) : m_song(song), m_bar(firstWhole()) {}

  void read(std::string_view line) {
    ++m_line;
    line = platform::trimmed(line);
    if (line.empty()) return;
    double beats = 0;
    if (const auto told = takeBar(line)) {
      m_bar = indexOf(told->number);
      beats = told->beats;
    }
    std::size_t bars = 0;
    const std::size_t first = m_bar;
    for (bool goesOn = true; goesOn; ++bars) {
      const auto end = line.find(kBarLine);
      place(platform::trimmed(line.substr(0, end)), first + bars, beats);
      goesOn = end != std::string_view::npos;
      line.remove_prefix(goesOn ? end + 1 : line.size());
      beats = 0;
    }
    // A bar line at the end of the line begins no further bar.
    constexpr std::size_t kLine = SongPage::kBarsOfLine;
    m_bar = first + (bars + kLine - 1) / kLine * kLine;
  }

  std::vector<SungWords> words() { return std::move(m_words); }

 private:
  std::size_t firstWhole() const {
    return m_song.bars.size() > 1 && m_song.bars.front().number == 0 ? 1 : 0;
  }

  std::size_t indexOf(int number) const {
    const auto found = std::ranges::find(m_song.bars, number, &PageSource::Bar::number);
    if (found == m_song.bars.end()) refuse();
    return static_cast<std::size_t>(found - m_song.bars.begin());
  }

  void place(std::string_view words, std::size_t bar, double beats) {
    if (words.empty()) return;
    if (bar >= m_song.bars.size()) refuse();
    const int tick = m_song.bars[bar].tick + static_cast<int>(std::lround(beats * kTicksOfBeat));
    if (tick >= m_song.bars.back().tick + m_song.bars.back().ticks) refuse();
    m_words.push_back({tick, std::string(words)});
  }

  [[noreturn]] void refuse() const {
    const int last = m_song.bars.empty() ? 0 : m_song.bars.back().number;
    throw NoPlaceForWords(
        phrase("Message",
               "line %1 of the lyrics is for a bar that there is not: the last one is %2. Put the "
               "number of a bar and a colon in front of a line to say where it belongs"),
        m_line, last);
  }

  const PageSource& m_song;
  std::size_t m_bar;
  int m_line = 0;
  std::vector<SungWords> m_words;
};

std::string withoutBarLines(std::string words) {
  std::ranges::replace(words, kBarLine, '/');
  return words;
}

/// "9" or "9+2.5", as a line begins.
std::string placeText(const PageSource::Bar& bar, int tick) {
  std::string text = std::to_string(bar.number);
  if (tick == bar.tick) return text;
  const int hundredths = static_cast<int>(std::lround((tick - bar.tick) * 100.0 / kTicksOfBeat));
  text += '+' + std::to_string(hundredths / 100);
  if (hundredths % 100 == 0) return text;
  std::string digits = std::to_string(100 + hundredths % 100).substr(1);
  if (digits.ends_with('0')) digits.pop_back();
  return text + '.' + digits;
}

/// The words of up to four bars: what begins with a bar in one line, all else in lines of its own.
std::string linesOf(std::span<const PageSource::Bar> bars,
                    std::span<const PageSource::Words> words) {
  std::string line, others;
  std::string waiting;
  for (const PageSource::Bar& bar : bars) {
    for (const PageSource::Words& each : words) {
      if (each.tick < bar.tick || each.tick >= bar.tick + bar.ticks) continue;
      const std::string text = withoutBarLines(each.text);
      if (each.tick != bar.tick) {
        others += placeText(bar, each.tick) + ": " + text + '\n';
        continue;
      }
      line += (line.empty() ? placeText(bar, bar.tick) + ": " : waiting + ' ') + text;
      waiting.clear();
    }
    if (!line.empty()) waiting += " |";
  }
  return (line.empty() ? "" : line + '\n') + others;
}

}  // namespace

std::vector<SungWords> readLyrics(std::string_view typed, const PageSource& song) {
  const std::string whole = platform::foreignText(typed);
  std::string_view text(whole);
  LyricsReader reader(song);
  while (!text.empty()) {
    const auto end = text.find('\n');
    reader.read(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return reader.words();
}

std::string lyricsText(const PageSource& song) {
  const std::span<const PageSource::Bar> bars(song.bars);
  std::string text;
  const bool hasPickUp = bars.size() > 1 && bars.front().number == 0;
  if (hasPickUp) text += linesOf(bars.first(1), song.words);
  for (std::size_t from = hasPickUp ? 1 : 0; from < bars.size(); from += SongPage::kBarsOfLine)
    text += linesOf(bars.subspan(from, std::min(SongPage::kBarsOfLine, bars.size() - from)),
                    song.words);
  return text;
}

}  // namespace korvel
