// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/RhythmRows.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "exchange/Piece.h"
#include "exchange/text/ChordsOfRow.h"

namespace korvel::exchange {

namespace {

constexpr std::size_t kMostRows = 4;
constexpr std::int64_t kSixteenth = kGrainsOfQuarter / 4;
constexpr std::int64_t kEighth = kGrainsOfQuarter / 2;
constexpr std::int64_t kWhole = 4 * kGrainsOfQuarter;
constexpr std::int64_t kTripletOfBeat = 3 * kEighth;  ///< As it is written, before it is squeezed.
constexpr int kMostCounted = 16;
constexpr std::size_t kMostOfTriplet = 6;
constexpr std::ptrdiff_t kFewestCounted = 3;

bool isIn(char32_t c, std::u32string_view set) { return set.find(c) != std::u32string_view::npos; }

/// The bar that a column of the text belongs to, or the bar line before it.
TabBar& barAt(std::vector<TabBar>& bars, std::size_t column) {
  auto after = std::ranges::upper_bound(bars, column + 1, {}, &TabBar::column);
  return after == bars.begin() ? *after : *--after;
}

std::ptrdiff_t columnIn(const TabBar& bar, std::size_t column) {
  return static_cast<std::ptrdiff_t>(column) - static_cast<std::ptrdiff_t>(bar.column);
}

/// How much of what is struck would be counted were the marks so many columns further right.
std::ptrdiff_t countedAt(std::ptrdiff_t right, const std::vector<TabBar>& bars) {
  const auto countIn = [right](const TabBar& bar) {
    return std::ranges::count_if(bar.struck, [&](const Struck& struck) {
      return std::ranges::any_of(bar.marks, [&](const Mark& mark) {
        const std::ptrdiff_t column = mark.column + right;
        return column >= static_cast<std::ptrdiff_t>(struck.first) &&
               column <= static_cast<std::ptrdiff_t>(struck.last);
      });
    });
  };
  std::ptrdiff_t counted = 0;
  for (const TabBar& bar : bars) counted += countIn(bar);
  return counted;
}

/// Whoever names strings "Eb" or draws double lines has the count a column beside what it counts.
void moveMarksOntoNotes(std::vector<TabBar>& bars) {
  std::ptrdiff_t struck = 0;
  for (const TabBar& bar : bars) struck += std::ssize(bar.struck);
  if (struck < kFewestCounted || countedAt(0, bars) > 0) return;
  for (const std::ptrdiff_t right : {1, -1}) {
    if (countedAt(right, bars) < struck) continue;
    for (TabBar& bar : bars)
      for (Mark& mark : bar.marks) mark.column += right;
    return;
  }
}

}  // namespace

RhythmRows::RhythmRows(std::span<const Row> rows, const TabSystem& system, std::size_t from,
                       std::size_t to)
    : m_rows(rows), m_end(system.end), m_to(to) {
  std::size_t row = system.first;
  if (row > from && isBlank(rows[row - 1])) --row;
  for (; row > from && m_above.size() < kMostRows && !isBlank(rows[row - 1]); --row)
    m_above.push_back(row - 1);
  row = system.end;
  if (row < to && isBlank(rows[row])) ++row;
  for (; row < to && m_below.size() < kMostRows && !isBlank(rows[row]); ++row)
    m_below.push_back(row);
  const auto says = [&](std::size_t each) {
    return isRowOfChords(rows[each]) || !countsOf(rows[each]).empty() ||
           !lettersOf(rows[each]).empty();
  };
  for (const auto* list : {&m_above, &m_below})
    for (const std::size_t each : *list)
      if (says(each)) m_said.push_back(each);
}

// Counted beats.

/// Nothing for a row of other words, or of numbers that count something else.
RhythmRows::Counts RhythmRows::countsOf(const Row& row) {
  Counts counts;
  int last = 0;
  std::size_t numbers = 0;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (isDigit(row[i])) {
      int number = static_cast<int>(row[i] - U'0');
      const std::size_t column = i;
      if (isDigit(at(row, i + 1))) number = number * 10 + static_cast<int>(row[++i] - U'0');
      if (number < 1 || number > kMostCounted) return {};
      if (last > 0 && number != last + 1 && number != 1) return {};
      counts.push_back({column, number, U' '});
      last = number;
      ++numbers;
    } else if (isIn(row[i], U"+&nui")) {
      counts.push_back({i, 0, U'+'});
    } else if (isIn(row[i], U"ea.")) {
      counts.push_back({i, 0, row[i]});
    } else if (!isIn(row[i], U" |-',*_:")) {
      return {};
    }
  }
  const bool isCounted = numbers > 1 || (numbers == 1 && counts.size() > 1);
  return isCounted ? counts : Counts();
}

bool RhythmRows::isToldAbove() const {
  return std::ranges::any_of(m_above, [&](std::size_t row) {
    return !countsOf(m_rows[row]).empty() || !lettersOf(m_rows[row]).empty();
  });
}

/// The program's own text has them three rows below the stems, be those blank or not.
RhythmRows::Counts RhythmRows::counts(bool above) const {
  for (const std::size_t row : above ? m_above : m_below)
    if (Counts counts = countsOf(m_rows[row]); !counts.empty()) return counts;
  constexpr std::size_t kRowOfRuler = 3;
  return above || stems().empty() ? Counts() : countsOf(below(kRowOfRuler));
}

std::vector<std::size_t> RhythmRows::cuts(bool above) const {
  std::vector<std::size_t> columns;
  bool isFirst = true;
  for (const Count& count : counts(above)) {
    if (count.number == 1 && !isFirst) columns.push_back(count.column);
    isFirst = isFirst && count.number == 0;
  }
  return columns;
}

/// Eighths are counted in 6/8 and the like, of which the program's own text has 6/8 and 12/8.
Metre RhythmRows::metreOf(int highest, bool hasHalves, const Known& known) {
  constexpr int kEighthsOfSix = 6;
  constexpr int kEighthsOfTwelve = 12;
  if (known.told && known.told->beatType == 8 && known.told->beats == highest) return *known.told;
  if (known.isOwn && !hasHalves)
    return {highest > kEighthsOfSix ? kEighthsOfTwelve : kEighthsOfSix, 8};
  const bool isOfEighths = !hasHalves && highest > 3 && (highest % 3 == 0 || highest == 7);
  return {highest, isOfEighths ? 8 : 4};
}

bool RhythmRows::areBarNumbers(std::vector<TabBar>& bars, const Counts& counts) {
  std::map<const TabBar*, int> numbers;
  for (const Count& count : counts) {
    if (count.number == 0) return false;
    ++numbers[&barAt(bars, count.column)];
  }
  return bars.size() > 1 &&
         std::ranges::all_of(numbers, [](const auto& each) { return each.second < 2; });
}

void RhythmRows::tellCounts(std::vector<TabBar>& bars, const Counts& counts, const Known& known) {
  if (areBarNumbers(bars, counts)) return;
  const bool hasHalves = std::ranges::find(counts, U'+', &Count::sign) != counts.end();
  const int highest = std::ranges::max_element(counts, {}, &Count::number)->number;
  const Metre metre = metreOf(highest, hasHalves, known);
  const std::int64_t unit = kWhole / metre.beatType;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i].number == 0) continue;
    std::size_t end = i + 1;
    while (end < counts.size() && counts[end].number == 0) ++end;
    TabBar& bar = barAt(bars, counts[i].column);
    if (!bar.metre && metre.beats > 1) bar.metre = metre;
    tellBeat(bar, std::span(counts).subspan(i, end - i), hasHalves, unit);
  }
  if (hasHalves && !known.isOwn) moveMarksOntoNotes(bars);
}

/// "1 + a" is a triplet, "1 e + a" and "1 . + ." are four; without halves signs divide a beat
/// evenly.
void RhythmRows::tellBeat(TabBar& bar, std::span<const Count> beat, bool hasHalves,
                          std::int64_t unit) {
  const std::int64_t begin = (beat.front().number - 1) * unit;
  const auto count = static_cast<std::int64_t>(beat.size());
  const bool isTriplet = count == 3 && beat[1].sign == U'+' && beat[2].sign == U'a';
  bool isPastHalf = false;
  for (std::int64_t i = 0; i < count; ++i) {
    const Count& each = beat[static_cast<std::size_t>(i)];
    std::int64_t at = unit * i / count;
    if (hasHalves && !isTriplet && i > 0) {
      const bool isLate = each.sign == U'a' || isPastHalf;
      at = each.sign == U'+' ? unit / 2 : isLate ? unit * 3 / 4 : unit / 4;
    }
    isPastHalf = isPastHalf || each.sign == U'+';
    bar.marks.push_back({columnIn(bar, each.column), begin + at});
  }
}

// Letters of lengths.

/// "q e. e", not a row of chords named E.
std::vector<RhythmRows::Sign> RhythmRows::lettersOf(const Row& row) {
  constexpr std::array<std::pair<std::u32string_view, std::int64_t>, 6> kLengths{
      {{U"wW", kWhole},
       {U"hH", kWhole / 2},
       {U"qQ", kGrainsOfQuarter},
       {U"eE", kEighth},
       {U"sS", kSixteenth},
       {U"tT", kSixteenth / 2}}};
  std::vector<Sign> signs;
  bool isOnlyE = true;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (isIn(row[i], U" |")) continue;
    const auto* length =
        std::ranges::find_if(kLengths, [&](const auto& each) { return isIn(row[i], each.first); });
    const bool isDotted = at(row, i + 1) == U'.';
    const std::size_t end = i + (isDotted ? 2 : 1);
    if (length == kLengths.end() || !isIn(at(row, end), U" |")) return {};
    isOnlyE = isOnlyE && isIn(row[i], U"eE");
    const std::int64_t grains = length->second;
    signs.push_back({i, {0, isDotted ? grains * 3 / 2 : grains}});
    i = end - 1;
  }
  return isOnlyE ? std::vector<Sign>() : signs;
}

std::vector<RhythmRows::Sign> RhythmRows::letters(bool above) const {
  for (const std::size_t row : above ? m_above : m_below)
    if (std::vector<Sign> signs = lettersOf(m_rows[row]); !signs.empty()) return signs;
  return {};
}

// Stems.

/// So many rows below the first one under the strings; an empty one where another system is.
const Row& RhythmRows::below(std::size_t n) const {
  static const Row kNone;
  return m_end + n < m_to ? m_rows[m_end + n] : kNone;
}

std::vector<RhythmRows::Sign> RhythmRows::stems() const {
  const Row& row = below(0);
  std::vector<Sign> signs;
  if (row.find_first_not_of(U" |or.") != Row::npos) return signs;
  for (std::size_t i = 0; i < row.size(); ++i)
    if (isIn(row[i], U"|or")) signs.push_back(stem(i));
  joinTriplets(signs);
  return signs;
}

RhythmRows::Sign RhythmRows::stem(std::size_t column) const {
  const char32_t head = at(below(0), column);
  const char32_t middle = at(below(1), column);
  std::int64_t length = head == U'o' ? kWhole : kGrainsOfQuarter;
  if (middle == U'o') length = kWhole / 2;
  if (middle == U'-') length = at(below(2), column) == U'-' ? kSixteenth : kEighth;
  if (at(below(0), column + 1) == U'.' || at(below(1), column + 1) == U'.') length = length * 3 / 2;
  const bool isRest = head == U'r';
  Sign sign{column, {0, length, isRest, isRest && length == kGrainsOfQuarter}};
  if (at(below(2), column + 1) == U'3') sign.sign.length = length * 2 / 3;
  return sign;
}

/// A "3" in a row of its own stands below the middle one of those that fill a beat or two.
void RhythmRows::joinTriplets(std::vector<Sign>& signs) const {
  const Row& numbers = below(3);
  if (numbers.find_first_not_of(U" 3") != Row::npos) return;
  for (std::size_t middle = 0; middle < signs.size(); ++middle) {
    if (at(numbers, signs[middle].column) != U'3') continue;
    for (std::size_t count = 2; count <= kMostOfTriplet; ++count) {
      const std::size_t first = middle - std::min(middle, (count - 1) / 2);
      if (first + count > signs.size()) break;
      std::int64_t sum = 0;
      for (std::size_t i = first; i < first + count; ++i) sum += signs[i].sign.length;
      if (sum != kTripletOfBeat && sum != 2 * kTripletOfBeat) continue;
      for (std::size_t i = first; i < first + count; ++i)
        signs[i].sign.length = signs[i].sign.length * 2 / 3;
      break;
    }
  }
}

// What is told.

/// In the program's own text "G (A)" is the shape of an A behind a capo.
void RhythmRows::tellNames(std::vector<TabBar>& bars, const Known& known) const {
  for (const std::size_t row : m_above) {
    if (!isRowOfChords(m_rows[row])) continue;
    TabBar* before = nullptr;
    for (auto& [column, text] : chordsOfRow(m_rows[row])) {
      if (before && known.isOwn && m_rows[row][column] == U'(') {
        before->names.back().text = std::move(text);
        continue;
      }
      TabBar& bar = barAt(bars, column);
      before = &bar;
      bar.names.push_back({columnIn(bar, column), std::move(text)});
    }
    return;
  }
}

/// "3/4" among the flags of stems.
void RhythmRows::tellTimes(std::vector<TabBar>& bars) const {
  const std::string row = plainWords(below(1));
  for (std::size_t i = 0; i < row.size(); ++i) {
    const bool begins = isDigit(static_cast<char32_t>(row[i])) && (i == 0 || row[i - 1] == ' ');
    if (const auto metre = begins ? metreAt(row, i) : std::nullopt) barAt(bars, i).metre = metre;
  }
}

void RhythmRows::tell(std::vector<TabBar>& bars, const Known& known) const {
  if (bars.empty()) return;
  tellNames(bars, known);
  std::vector<Sign> signs = stems();
  if (!signs.empty()) tellTimes(bars);
  if (const Counts found = counts(known.isAbove); !found.empty()) tellCounts(bars, found, known);
  if (signs.empty()) signs = letters(known.isAbove);
  for (Sign& sign : signs) {
    TabBar& bar = barAt(bars, sign.column);
    sign.sign.column = columnIn(bar, sign.column);
    bar.rhythm.push_back(sign.sign);
  }
}

}  // namespace korvel::exchange
