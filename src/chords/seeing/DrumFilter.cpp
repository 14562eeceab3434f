// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/DrumFilter.h"

#include <algorithm>

namespace korvel::chords {
namespace {

/// Bins on each side.
constexpr std::size_t kBroadSide = 15;
constexpr std::size_t kBroad = 2 * kBroadSide + 1;
constexpr float kLeastPower = 1e-24F;

/// The median of each bin and its neighbours; the ends are repeated beyond the scale.
void slidingMedians(const LogRow& row, LogRow& medians) {
  const auto at = [&row](std::ptrdiff_t i) {
    const auto last = static_cast<std::ptrdiff_t>(kBins) - 1;
    return row[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(i, 0, last))];
  };
  const auto side = static_cast<std::ptrdiff_t>(kBroadSide);
  std::array<float, kBroad> sorted{};
  for (std::ptrdiff_t i = -side; i <= side; ++i) sorted[static_cast<std::size_t>(i + side)] = at(i);
  std::ranges::sort(sorted);
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    medians[bin] = sorted[kBroadSide];
    const auto here = static_cast<std::ptrdiff_t>(bin);
    const float gone = at(here - side), come = at(here + side + 1);
    auto* place = std::ranges::lower_bound(sorted, gone);
    for (; place + 1 != sorted.end() && place[1] < come; ++place) place[0] = place[1];
    for (; place != sorted.begin() && place[-1] > come; --place) place[0] = place[-1];
    *place = come;
  }
}

}  // namespace

void DrumFilter::add(const LogRow& row) {
  m_recent[m_next] = row;
  m_next = (m_next + 1) % kLong;
}

void DrumFilter::middle(Row& result) const {
  const LogRow& row = m_recent[(m_next + kDelay) % kLong];
  LogRow broad;
  slidingMedians(row, broad);
  float all = 0, percussive = 0;
  std::array<float, kLong> column;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    for (std::size_t t = 0; t < kLong; ++t) column[t] = m_recent[t][bin];
    std::ranges::nth_element(column, column.begin() + kDelay);
    const float tonal = column[kDelay] * column[kDelay];
    const float drum = broad[bin] * broad[bin];
    const float share = drum / (tonal + drum + kLeastPower);
    const float power = row[bin] * row[bin];
    result.tones[bin] = row[bin] * (tonal / (tonal + drum + kLeastPower));
    all += power;
    percussive += share * power;
  }
  result.level = all;
  result.percussive = all > 0 ? percussive / all : 0;
}

}  // namespace korvel::chords
