// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/GridReader.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

#include "music/Ticks.h"
#include "platform/text/Blanks.h"
#include "tab/chordpro/ReadBars.h"
#include "tab/chordpro/ReadNames.h"
#include "tab/chordpro/ReadWords.h"

namespace korvel {
namespace {

using platform::trimmed;

constexpr int kMostTimes = 100;

/// What "x3", "3x" or "(x3)" behind a repeat says; twice without a word.
int timesIn(const std::vector<std::string>& margin) {
  for (const std::string& word : margin) {
    std::string digits;
    for (const char letter : word)
      if (letter >= '0' && letter <= '9') digits += letter;
    const bool isTimes = word.find('x') != std::string::npos && !digits.empty();
    if (isTimes)
      return static_cast<int>(
          std::clamp(numberIn(digits).value_or(kMostTimes), 1.0, double{kMostTimes}));
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

}  // namespace

void GridReader::begin() { m_repeatFrom = m_bars.size(); }

void GridReader::line(std::string_view text) {
  const GridLine read = gridLineOf(text);
  for (const GridLine::Bar& each : read.bars) {
    if (each.beginsRepeat) begin();
    bar(each.cells);
    if (each.endsRepeat) repeat(timesIn(read.margin));
  }
}

void GridReader::repeat(int times) {
  const std::size_t end = m_bars.size();
  for (int time = 1; time < times; ++time)
    m_bars.repeat(m_repeatFrom, std::min(end, m_repeatFrom + m_bars.room()));
  begin();
}

void GridReader::bar(const std::vector<std::string>& cells) {
  if (cells.empty() || m_bars.isTooLong()) return;
  if (cells.front() == "%" || cells.front() == "%%") return m_bars.repeatLast(cells.front().size());
  const int count = static_cast<int>(cells.size());
  const int ticks =
      m_cellsOfBeat > 0 ? count * kTicksOfBeat / m_cellsOfBeat : m_bars.ticksOfWhole();
  m_bars.addBar(chordsOf(cells, ticks), ticks);
}

/// Those of a cell share its time.
std::vector<PageSource::Chord> GridReader::chordsOf(const std::vector<std::string>& cells,
                                                    int ticks) {
  std::vector<PageSource::Chord> chords;
  const int count = static_cast<int>(cells.size());
  const auto tickOf = [&](int cell) {
    return static_cast<int>(std::int64_t{ticks} * cell / count);
  };
  for (int cell = 0; cell < count; ++cell) {
    auto ofCell = chordsOf(cells[static_cast<std::size_t>(cell)]);
    const int from = tickOf(cell);
    const int to = tickOf(cell + 1);
    const int shares = static_cast<int>(ofCell.size());
    for (int i = 0; i < shares; ++i)
      ofCell[static_cast<std::size_t>(i)].tick = from + (to - from) * i / shares;
    std::ranges::move(ofCell, std::back_inserter(chords));
  }
  return chords;
}

/// "Am~G" has two; a point is a beat on which the chord goes on.
std::vector<PageSource::Chord> GridReader::chordsOf(const std::string& cell) {
  std::vector<PageSource::Chord> chords;
  for (std::size_t at = 0; at <= cell.size();) {
    const std::size_t end = std::min(cell.find('~', at), cell.size());
    const std::string name = cell.substr(at, end - at);
    const bool isPoint = name.empty() || name == "." || name == "/" || name.starts_with('*');
    const auto chord = isPoint ? std::nullopt : m_names.chordOf(name);
    if (chord) chords.push_back(*chord);
    at = end + 1;
  }
  return chords;
}

}  // namespace korvel
