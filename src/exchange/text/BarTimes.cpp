// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/BarTimes.h"

#include <algorithm>
#include <utility>

#include "exchange/Piece.h"
#include "exchange/text/ColumnTimes.h"
#include "exchange/text/SignTimes.h"

namespace korvel::exchange {

namespace {

constexpr std::int64_t kShortest = kGrainsOfQuarter / 4;
constexpr std::int64_t kUsual = kGrainsOfQuarter / 2;
constexpr double kClearlyLess = 0.8;
constexpr int kSixteenthNote = 16;

/// The time signature of a bar of that length, in quarters where they fill it.
Metre metreOf(std::int64_t length) {
  for (int type = 4; type < kSixteenthNote; type *= 2) {
    const std::int64_t unit = 4 * kGrainsOfQuarter / type;
    if (length % unit == 0) return {static_cast<int>(length / unit), type};
  }
  return {static_cast<int>(std::max<std::int64_t>(length / kShortest, 1)), kSixteenthNote};
}

class Timing {
 public:
  Timing(const std::vector<TabBar>& bars, std::optional<Metre> told, bool isOwn)
      : m_bars(bars), m_told(told), m_isOwn(isOwn) {}

  std::vector<TimedBar> times() {
    const bool bySigns = m_isOwn || areSignsRight();
    std::vector<TimedBar> timed;
    Metre metre = firstMetre();
    const ColumnTimes columns = columnTimes(metre);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
      const TabBar& bar = m_bars[i];
      const bool isLast = i + 1 == m_bars.size();
      if (bar.metre && (!isLast || lengthOf(*bar.metre) > lengthOf(metre))) metre = *bar.metre;
      if (auto told = bySigns ? ofSigns(i, metre) : std::nullopt)
        timed.push_back(std::move(*told));
      else if (!bar.marks.empty())
        timed.push_back(timesByMarks(bar, metre, i == 0));
      else if (i == 0 && m_bars.size() > 1 && columns.isPickUp(bar))
        timed.push_back(columns.timesOfPickUp(bar));
      else
        timed.push_back(columns.timesOf(bar));
      metre = timed.back().metre;
    }
    return timed;
  }

 private:
  Metre firstMetre() const {
    if (m_told) return *m_told;
    for (const TabBar& bar : m_bars)
      if (bar.metre) return *bar.metre;
    return {};
  }

  /// Where nothing says the metre, three quarters if the columns make clearly more sense then.
  ColumnTimes columnTimes(Metre& metre) const {
    std::vector<const TabBar*> bars;
    bool isTold = m_told.has_value();
    for (const TabBar& bar : m_bars) {
      isTold = isTold || bar.metre;
      if (bar.marks.empty() && !bar.struck.empty()) bars.push_back(&bar);
    }
    const ColumnTimes usual(bars, metre);
    if (isTold) return usual;
    const Metre threeQuarters{3, 4};
    const ColumnTimes three(bars, threeQuarters);
    if (three.strangeness() + kClearlyLess >= usual.strangeness()) return usual;
    metre = threeQuarters;
    return three;
  }

  /// Whether the signs of others fill most bars to the same length.
  bool areSignsRight() const {
    const std::int64_t length = lengthOf(m_told.value_or(Metre()));
    std::ptrdiff_t right = 0;
    for (const TabBar& bar : m_bars) {
      const auto timed = timesBySigns(bar, m_told.value_or(Metre()));
      if (timed && timed->length == length) ++right;
    }
    return 2 * right > std::ssize(m_bars);
  }

  /// A bar that its signs fill, or not: then it is a pick-up, or the end of what is there.
  std::optional<TimedBar> ofSigns(std::size_t index, const Metre& metre) const {
    const TabBar& bar = m_bars[index];
    auto timed = timesBySigns(bar, metre);
    if (!timed || !isAsCounted(bar, *timed)) return std::nullopt;
    if (bar.metre) {
      const std::int64_t whole = lengthOf(*bar.metre);
      if (timed->length > whole && !m_isOwn) return std::nullopt;
      timed->metre = timed->length > whole ? metreOf(timed->length) : *bar.metre;
      if (index > 0) timed->length = std::max(timed->length, whole);
      return timed;
    }
    const auto next = index == 0 ? lengthOfSigns(1, metre) : std::nullopt;
    if (next && timed->length < *next) {
      timed->metre = metreOf(*next);
    } else if (timed->length < lengthOf(metre) && !m_isOwn) {
      timed->length = lengthOf(metre);
    } else if (timed->length != lengthOf(metre)) {
      timed->metre = metreOf(timed->length);
    }
    return timed;
  }

  std::optional<std::int64_t> lengthOfSigns(std::size_t index, const Metre& metre) const {
    if (index >= m_bars.size()) return std::nullopt;
    if (m_bars[index].metre) return lengthOf(*m_bars[index].metre);
    const auto timed = timesBySigns(m_bars[index], metre);
    return timed ? std::optional(timed->length) : std::nullopt;
  }

  const std::vector<TabBar>& m_bars;
  std::optional<Metre> m_told;
  bool m_isOwn;
};

/// Columns from what is struck to the next, as most often.
std::ptrdiff_t usualGap(const std::vector<TabBar>& systems) {
  std::vector<std::size_t> gaps;
  for (const TabBar& system : systems)
    for (std::size_t i = 1; i < system.struck.size(); ++i)
      gaps.push_back(system.struck[i].from - system.struck[i - 1].from);
  if (gaps.empty()) return 1;
  const auto middle = gaps.begin() + std::ssize(gaps) / 2;
  std::ranges::nth_element(gaps, middle);
  return static_cast<std::ptrdiff_t>(std::max<std::size_t>(*middle, 1));
}

TimedBar timesByGaps(const TabBar& system, std::ptrdiff_t gap) {
  const auto timeOf = [&](std::size_t columns) {
    const std::int64_t shortest = static_cast<std::int64_t>(columns) * kUsual * 2 + gap * kShortest;
    return shortest / (2 * gap * kShortest) * kShortest;
  };
  TimedBar timed;
  if (system.struck.empty()) return timed;
  const std::size_t first = system.struck.front().from;
  for (const Struck& struck : system.struck) {
    const std::int64_t earliest = timed.struck.empty() ? 0 : timed.struck.back().at + kShortest;
    timed.struck.push_back({std::max(timeOf(struck.from - first), earliest), 0});
    timed.places.push_back({static_cast<std::ptrdiff_t>(struck.first), timed.struck.back().at});
  }
  timed.length = std::max(timeOf(system.width - std::min(first, system.width)),
                          timed.struck.back().at + kUsual);
  letSound(timed);
  return timed;
}

}  // namespace

std::int64_t lengthOf(const Metre& metre) {
  return 4 * kGrainsOfQuarter / metre.beatType * metre.beats;
}

std::vector<TimedBar> timesOf(const std::vector<TabBar>& bars, std::optional<Metre> told,
                              bool isOwn) {
  return Timing(bars, told, isOwn).times();
}

std::vector<TimedBar> timesWithoutBars(const std::vector<TabBar>& systems, bool isOwn) {
  const std::ptrdiff_t gap = usualGap(systems);
  std::vector<TimedBar> timed;
  for (const TabBar& system : systems) {
    auto bySigns = isOwn ? timesBySigns(system, {}) : std::nullopt;
    timed.push_back(bySigns ? std::move(*bySigns) : timesByGaps(system, gap));
  }
  return timed;
}

}  // namespace korvel::exchange
