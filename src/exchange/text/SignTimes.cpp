// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/SignTimes.h"

#include <algorithm>
#include <cmath>

#include "exchange/Piece.h"

namespace korvel::exchange {

namespace {

constexpr std::int64_t kSixteenthOfSigns = kGrainsOfQuarter / 4;
constexpr std::int64_t kThirdOfSigns = kGrainsOfQuarter / 3;

/// Or a column beside it.
bool isAt(const RhythmSign& sign, const Struck& struck) {
  return sign.column + 1 >= static_cast<std::ptrdiff_t>(struck.first) &&
         sign.column <= static_cast<std::ptrdiff_t>(struck.last) + 1;
}

std::int64_t nearest(double at, std::int64_t grid) {
  return static_cast<std::int64_t>(std::llround(at / static_cast<double>(grid))) * grid;
}

/// To a sixteenth, or to a triplet that is much nearer.
std::int64_t roundedOff(double at) {
  const std::int64_t even = nearest(at, kSixteenthOfSigns);
  const std::int64_t third = nearest(at, kThirdOfSigns);
  const auto error = [at](std::int64_t grid) { return std::abs(static_cast<double>(grid) - at); };
  return error(third) * 3 < error(even) ? third : even;
}

std::int64_t placeByMarks(const std::vector<Mark>& marks, const Struck& struck) {
  for (std::size_t column = struck.first; column <= struck.last; ++column)
    for (const Mark& mark : marks)
      if (mark.column == static_cast<std::ptrdiff_t>(column)) return mark.at;
  const auto column = static_cast<std::ptrdiff_t>(struck.from);
  auto after = std::ranges::upper_bound(marks, column, {}, &Mark::column);
  if (after == marks.end()) --after;
  if (after == marks.begin() && marks.size() > 1) ++after;
  const Mark& to = *after;
  const Mark& from = after == marks.begin() ? *after : *(after - 1);
  const auto columns = static_cast<double>(std::max<std::ptrdiff_t>(to.column - from.column, 1));
  const double share = static_cast<double>(column - from.column) / columns;
  return roundedOff(static_cast<double>(from.at) + share * static_cast<double>(to.at - from.at));
}

}  // namespace

std::optional<TimedBar> timesBySigns(const TabBar& bar, const Metre& metre) {
  TimedBar timed{metre};
  std::size_t next = 0;
  bool isSounding = true;  // what was struck before may go on
  for (const RhythmSign& sign : bar.rhythm) {
    const std::int64_t at = timed.length;
    timed.places.push_back({sign.column, at});
    timed.length += sign.isAlone && bar.rhythm.size() == 1 ? lengthOf(metre) : sign.length;
    if (next < bar.struck.size() && isAt(sign, bar.struck[next])) {
      timed.struck.push_back({at, timed.length});
      isSounding = true;
      ++next;
    } else if (sign.isRest) {
      isSounding = false;
    } else if (isSounding && !timed.struck.empty()) {
      timed.struck.back().end = timed.length;
    } else if (isSounding) {
      timed.goesOn = timed.length;
    }
  }
  return next == bar.struck.size() && timed.length > 0 ? std::optional(timed) : std::nullopt;
}

TimedBar timesByMarks(const TabBar& bar, const Metre& metre, bool isFirst) {
  TimedBar timed{metre, lengthOf(metre)};
  std::vector<Mark> marks = bar.marks;
  std::ranges::sort(marks, {}, &Mark::column);
  const std::int64_t begin = isFirst ? marks.front().at : 0;
  timed.length -= begin;
  for (const Mark& mark : marks) timed.places.push_back({mark.column, mark.at - begin});
  for (const Struck& struck : bar.struck)
    timed.struck.push_back({placeByMarks(marks, struck) - begin, 0});
  spread(timed);
  letSound(timed);
  return timed;
}

bool isAsCounted(const TabBar& bar, const TimedBar& timed) {
  std::optional<std::int64_t> begin;
  for (const TimedBar::Place& place : timed.places) {
    const auto mark = std::ranges::find(bar.marks, place.column, &Mark::column);
    if (mark == bar.marks.end()) continue;
    if (!begin) begin = mark->at - place.at;
    if (std::abs(mark->at - place.at - *begin) >= kSixteenthOfSigns) return false;
  }
  return true;
}

void letSound(TimedBar& timed) {
  for (std::size_t i = 0; i < timed.struck.size(); ++i)
    timed.struck[i].end = i + 1 < timed.struck.size() ? timed.struck[i + 1].at : timed.length;
}

void spread(TimedBar& timed) {
  auto& struck = timed.struck;
  bool isInOrder = true;
  for (std::size_t i = 0; i < struck.size(); ++i) {
    const bool isBehind = i == 0 ? struck[i].at >= 0 : struck[i].at > struck[i - 1].at;
    isInOrder = isInOrder && isBehind && struck[i].at < timed.length;
  }
  if (isInOrder) return;
  const auto count = static_cast<std::int64_t>(struck.size());
  for (std::int64_t i = 0; i < count; ++i)
    struck[static_cast<std::size_t>(i)].at = timed.length * i / count;
}

}  // namespace korvel::exchange
