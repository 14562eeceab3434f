// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/ColumnTimes.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "exchange/Piece.h"
#include "exchange/text/SignTimes.h"

namespace korvel::exchange {

namespace {

constexpr std::ptrdiff_t kMostLead = 3;
constexpr std::ptrdiff_t kMostTail = 3;
constexpr std::ptrdiff_t kFewestColumns = 3;
constexpr std::int64_t kFine = kGrainsOfQuarter / 4;
constexpr std::int64_t kThird = kGrainsOfQuarter / 3;
constexpr double kNowhere = 8;        ///< Strangeness of a place that is on no grid.
constexpr double kNotTheFirst = 0.3;  ///< For a second digit, or behind a bracket.
constexpr double kTooStrange = 3;
constexpr double kPerColumnOfTail = 0.6;
constexpr double kUnevenBeats = 1.5;
constexpr double kPerColumnOfLead = 0.25;
constexpr double kShortRest = 1.5;  ///< Before the first note of a bar.
constexpr double kShareOfUsual = 0.6;
constexpr std::size_t kFewestBars = 3;

bool isInThrees(const Metre& metre) { return metre.beatType == 8 && metre.beats % 3 == 0; }

}  // namespace

ColumnTimes::ColumnTimes(const std::vector<const TabBar*>& bars, const Metre& metre)
    : m_metre(metre), m_length(lengthOf(metre)) {
  double best = -1;
  for (std::ptrdiff_t lead = 0; lead <= kMostLead; ++lead) {
    for (std::ptrdiff_t tail = -kMostTail; tail <= kMostTail; ++tail) {
      double sum = 0;
      for (const TabBar* bar : bars) sum += badness(*bar, {lead, tail});
      if (best >= 0 && sum >= best) continue;
      best = sum;
      m_frame = {lead, tail};
    }
  }
  m_strangeness = bars.empty() ? 0 : best / static_cast<double>(bars.size());
  findUsual(bars);
}

void ColumnTimes::findUsual(const std::vector<const TabBar*>& bars) {
  std::map<std::ptrdiff_t, std::size_t> counts;
  for (const TabBar* bar : bars) ++counts[columns(*bar, m_frame)];
  const auto most =
      std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
  if (most == counts.end() || bars.size() < kFewestBars) return;
  const double share = static_cast<double>(most->second) / static_cast<double>(bars.size());
  if (share >= kShareOfUsual) m_usual = most->first;
}

std::ptrdiff_t ColumnTimes::columns(const TabBar& bar, const Frame& frame) const {
  const std::ptrdiff_t columns = static_cast<std::ptrdiff_t>(bar.width) - frame.lead - frame.tail;
  return std::max(columns, kFewestColumns);
}

/// How odd a place is where bars are as people write them; 0 on a beat.
double ColumnTimes::strangenessOf(std::int64_t at) const {
  const std::int64_t beat = isInThrees(m_metre) ? kGrainsOfQuarter * 3 / 2 : kGrainsOfQuarter;
  if (at % beat == 0) return 0;
  if (at % (kGrainsOfQuarter / 2) == 0) return 1;
  if (at % kFine == 0) return 2;
  if (at % kThird == 0) return 2.5;
  if (at % (kFine / 2) == 0 || at % (kThird / 2) == 0) return 4;
  return kNowhere;
}

double ColumnTimes::strangenessOf(const Struck& struck, const Frame& frame,
                                  std::ptrdiff_t columns) const {
  return placeOf(struck, frame, columns).strangeness;
}

ColumnTimes::Place ColumnTimes::placeOf(const Struck& struck, const Frame& frame,
                                        std::ptrdiff_t columns) const {
  Place best{0, kNowhere};
  for (std::size_t column = struck.from; column <= struck.to; ++column) {
    const std::int64_t grains = (static_cast<std::ptrdiff_t>(column) - frame.lead) * m_length;
    if (grains < 0 || grains >= m_length * columns || grains % columns != 0) continue;
    const double here = strangenessOf(grains / columns) + (column > struck.from ? kNotTheFirst : 0);
    if (here < best.strangeness) best = {grains / columns, here};
  }
  return best;
}

double ColumnTimes::badness(const TabBar& bar, const Frame& frame) const {
  const std::ptrdiff_t width = columns(bar, frame);
  double sum = 0;
  for (const Struck& struck : bar.struck) sum += strangenessOf(struck, frame, width);
  if (beginsLate(bar, frame, width)) sum += kShortRest * static_cast<double>(bar.struck.size());
  if (!bar.struck.empty()) sum /= static_cast<double>(bar.struck.size());
  sum += kPerColumnOfTail * static_cast<double>(std::abs(frame.tail));
  sum += width % m_metre.beats == 0 ? 0 : kUnevenBeats;
  return sum + kPerColumnOfLead * static_cast<double>(std::max<std::ptrdiff_t>(frame.lead - 1, 0));
}

/// Whether less than an eighth comes before the first note, which is more often space than a rest.
bool ColumnTimes::beginsLate(const TabBar& bar, const Frame& frame, std::ptrdiff_t columns) const {
  if (bar.struck.empty()) return false;
  const std::ptrdiff_t before = static_cast<std::ptrdiff_t>(bar.struck.front().from) - frame.lead;
  return before > 0 && before * m_length * 2 < kGrainsOfQuarter * columns;
}

/// That of all bars, unless this one is written otherwise and makes sense by itself. One that makes
/// none begins with its first note where that may be: the columns before it are space.
ColumnTimes::Frame ColumnTimes::frameOf(const TabBar& bar) const {
  double least = badness(bar, m_frame);
  if (least < kTooStrange || bar.struck.empty()) return m_frame;
  const auto first = static_cast<std::ptrdiff_t>(bar.struck.front().from);
  const bool beginsAsOthers = first == m_frame.lead;
  Frame best = m_frame;
  if (first > m_frame.lead && first <= kMostLead) best.lead = first;
  for (std::ptrdiff_t lead = 0; lead <= kMostLead; ++lead) {
    if (beginsAsOthers && lead != m_frame.lead) continue;
    for (std::ptrdiff_t tail = -kMostTail; tail <= kMostTail; ++tail) {
      const double here = badness(bar, {lead, tail});
      if (here >= kTooStrange || here >= least) continue;
      least = here;
      best = {lead, tail};
    }
  }
  return best;
}

std::int64_t ColumnTimes::rounded(double at, bool inTriplets) const {
  const std::int64_t grid = inTriplets ? kThird : kFine;
  return static_cast<std::int64_t>(std::llround(at / static_cast<double>(grid))) * grid;
}

TimedBar ColumnTimes::placed(const TabBar& bar, const Frame& frame, std::ptrdiff_t columns) const {
  TimedBar timed{m_metre, m_length};
  const auto exact = [&](const Struck& struck) {
    const auto behind = static_cast<std::ptrdiff_t>(struck.from) - frame.lead;
    return static_cast<double>(behind * m_length) / static_cast<double>(columns);
  };
  const auto error = [&](bool inTriplets) {
    double sum = 0;
    for (const Struck& struck : bar.struck) {
      const double at = exact(struck);
      sum += std::abs(at - static_cast<double>(rounded(at, inTriplets)));
    }
    return sum;
  };
  const bool inTriplets = !isInThrees(m_metre) && 2 * error(true) < error(false);
  for (const Struck& struck : bar.struck) {
    const Place place = placeOf(struck, frame, columns);
    const std::int64_t about = std::max<std::int64_t>(rounded(exact(struck), inTriplets), 0);
    timed.struck.push_back({place.strangeness < kNowhere ? place.at : about, 0});
  }
  spread(timed);
  letSound(timed);
  for (std::size_t i = 0; i < bar.struck.size(); ++i)
    timed.places.push_back({static_cast<std::ptrdiff_t>(bar.struck[i].first), timed.struck[i].at});
  return timed;
}

TimedBar ColumnTimes::timesOf(const TabBar& bar) const {
  const Frame frame = frameOf(bar);
  return placed(bar, frame, columns(bar, frame));
}

bool ColumnTimes::isPickUp(const TabBar& bar) const {
  const std::ptrdiff_t width = columns(bar, m_frame);
  if (m_usual == 0 || width * 4 > m_usual * 3) return false;
  const std::int64_t grains = m_length * width;
  return grains % m_usual == 0 && grains / m_usual % (kGrainsOfQuarter / 2) == 0;
}

TimedBar ColumnTimes::timesOfPickUp(const TabBar& bar) const {
  TimedBar timed = placed(bar, m_frame, m_usual);
  timed.length = m_length * columns(bar, m_frame) / m_usual;
  spread(timed);
  letSound(timed);
  for (std::size_t i = 0; i < timed.places.size(); ++i) timed.places[i].at = timed.struck[i].at;
  return timed;
}

}  // namespace korvel::exchange
