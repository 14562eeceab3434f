// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/SystemBars.h"

#include <algorithm>
#include <array>
#include <utility>

#include "exchange/text/StringFrets.h"

namespace korvel::exchange {

namespace {

constexpr std::size_t kTabLines = kStrings;
constexpr std::ptrdiff_t kMajority = 4;
constexpr std::ptrdiff_t kMostDots = 6;
constexpr int kMostTimes = 32;

/// What a line has of a bar.
struct Piecelet {
  std::size_t column;
  Row text;
};
using Parts = std::vector<Piecelet>;

/// "| e|" between systems that stand side by side.
bool isNameAlone(const Row& text) {
  const std::size_t first = std::min(text.find_first_not_of(U' '), text.size());
  const std::size_t last = text.find_last_not_of(U' ');
  const auto name = nameAt(text.substr(0, last + 1) + U"|", first);
  return name && name->end == last + 1;
}

void cut(const StringLine& line, std::size_t from, std::size_t to, Parts& parts) {
  const Row text = line.body.substr(std::min(from, line.body.size()), to - from);
  if (!isBlank(text) && !isNameAlone(text)) parts.push_back({line.column + from, text});
}

Parts partsAtBars(const StringLine& line) {
  Parts parts;
  std::size_t from = 0;
  for (std::size_t bar = line.body.find(U'|'); bar != Row::npos; bar = line.body.find(U'|', from)) {
    cut(line, from, bar, parts);
    from = bar + 1;
  }
  cut(line, from, line.body.size(), parts);
  return parts;
}

/// A bar line that misses in this line is where those of others are, and one of its own is none.
Parts partsAtColumns(const StringLine& line, const std::vector<std::size_t>& columns,
                     bool areBarLines) {
  StringLine plain = line;
  std::ranges::replace(plain.body, U'|', U'-');
  Parts parts;
  std::size_t from = 0;
  for (const std::size_t column : columns) {
    const std::size_t to = column < line.column ? 0 : column - line.column;
    if (to > from) cut(plain, from, to, parts);
    const bool isLine = areBarLines && !isDigit(at(line.body, to));
    from = std::max(from, isLine ? to + 1 : to);
  }
  if (from < plain.body.size()) cut(plain, from, plain.body.size(), parts);
  return parts;
}

/// Columns at which most lines have a bar line.
std::vector<std::size_t> commonBars(const TabSystem& system) {
  std::map<std::size_t, std::ptrdiff_t> lines;
  for (const StringLine& line : system.lines)
    for (std::size_t i = 0; i < line.body.size(); ++i)
      if (line.body[i] == U'|') ++lines[line.column + i];
  std::vector<std::size_t> columns;
  for (const auto& [column, count] : lines)
    if (count >= kMajority) columns.push_back(column);
  return columns;
}

std::array<Parts, kTabLines> partsOf(const TabSystem& system,
                                     const std::vector<std::size_t>& cuts) {
  std::array<Parts, kTabLines> parts;
  const auto each = [&](const auto& divide) {
    std::ranges::transform(system.lines, parts.begin(), divide);
  };
  each(partsAtBars);
  const auto isLikeFirst = [&](const Parts& line) { return line.size() == parts[0].size(); };
  if (!cuts.empty() && parts[0].size() == 1)
    each([&](const StringLine& line) { return partsAtColumns(line, cuts, false); });
  else if (!std::ranges::all_of(parts, isLikeFirst))
    each([columns = commonBars(system)](const StringLine& line) {
      return partsAtColumns(line, columns, true);
    });
  return parts;
}

/// The text of a bar on each line, from the top.
using Lines = std::array<Row, kTabLines>;

bool isDot(char32_t c) { return c == U':' || c == U'o' || c == U'O' || c == U'*' || c == U'.'; }

/// Takes dots that stand in a column beside a bar line away, with the column. Answers whether there
/// were any.
bool takeDots(Lines& lines, bool atEnd) {
  const auto edge = [atEnd](const Row& line) {
    return line.empty() ? U'-' : atEnd ? line.back() : line.front();
  };
  const auto isDotted = [&](const Row& line) {
    const bool isHarmonic = atEnd && line.size() > 1 && isDigit(line[line.size() - 2]);
    return isDot(edge(line)) && !isHarmonic;
  };
  const auto dots = std::ranges::count_if(lines, isDotted);
  if (dots < 2 || dots > kMostDots) return false;
  for (Row& line : lines) {
    if (line.empty() || (edge(line) != U'-' && !isDotted(line))) continue;
    if (atEnd)
      line.pop_back();
    else
      line.erase(0, 1);
  }
  return true;
}

/// "x4", "4x", "(x 4)" or "play 4 times": 0 for other remarks.
int timesOf(const Row& remark) {
  const bool isTold =
      remark.find_first_of(U"xX\u00D7") != Row::npos || remark.find(U"times") != Row::npos;
  const std::size_t digit = remark.find_first_of(U"0123456789");
  if (!isTold || digit == Row::npos) return 0;
  int times = 0;
  for (std::size_t i = digit; i < remark.size() && isDigit(remark[i]) && times < kMostTimes; ++i)
    times = times * 10 + static_cast<int>(remark[i] - U'0');
  return times >= 2 && times <= kMostTimes ? times : 0;
}

/// What stands behind a system counts for its last repeat, or for all of it where it has none.
void addRemark(const TabSystem& system, std::vector<TabBar>& bars) {
  int times = 0;
  for (const StringLine& line : system.lines) times = std::max(times, timesOf(line.remark));
  if (times == 0 || bars.empty()) return;
  const auto isRepeat = [](const TabBar& bar) { return bar.signs.timesPlayed > 0; };
  const auto last = std::find_if(bars.rbegin(), bars.rend(), isRepeat);
  if (last != bars.rend()) {
    last->signs.timesPlayed = times;
    return;
  }
  bars.front().signs.opensRepeat = true;
  bars.back().signs.timesPlayed = times;
}

TabBar barOf(const std::array<Parts, kTabLines>& parts, std::size_t index, bool upsideDown,
             std::map<std::string, int>& left) {
  TabBar bar;
  Lines lines;
  bar.column = parts[0].size() > index ? parts[0][index].column : 0;
  for (std::size_t i = 0; i < kTabLines; ++i)
    if (index < parts.at(i).size()) lines.at(i) = parts.at(i)[index].text;
  if (takeDots(lines, false)) {
    bar.signs.opensRepeat = true;
    ++bar.column;
  }
  if (takeDots(lines, true)) bar.signs.timesPlayed = 2;
  for (const Row& line : lines) bar.width = std::max(bar.width, line.size());
  if (upsideDown) std::ranges::reverse(lines);
  bar.struck = struckOn(lines, left);
  return bar;
}

}  // namespace

std::vector<TabBar> barsOf(const TabSystem& system, bool upsideDown,
                           const std::vector<std::size_t>& cuts, std::map<std::string, int>& left) {
  const std::array<Parts, kTabLines> parts = partsOf(system, cuts);
  std::size_t count = 0;
  for (const Parts& line : parts) count = std::max(count, line.size());
  std::vector<TabBar> bars;
  for (std::size_t i = 0; i < count; ++i) bars.push_back(barOf(parts, i, upsideDown, left));
  addRemark(system, bars);
  return bars;
}

bool isBarred(const TabSystem& system) {
  return std::ranges::count_if(system.lines, &StringLine::isBarred) >= kMajority;
}

}  // namespace korvel::exchange
