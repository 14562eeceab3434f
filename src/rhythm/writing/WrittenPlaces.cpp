// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/writing/WrittenPlaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvel::rhythm {
namespace {

/// Ticks from place to place: beats, halves, quarters, thirds, sixths.
constexpr std::array kSteps{12, 6, 3, 4, 2};
constexpr std::size_t kDivisions = kSteps.size();
using Prices = std::array<double, kDivisions>;
constexpr Prices kBinaryPrices{0, .8, 2.2, 3.4, 8};
constexpr Prices kTernaryPrices{0, 1.6, 4, .6, 3};
constexpr double kForbidden = 1e6;
constexpr double kShareOfEmpty = 0.3;
constexpr double kErrorWidth = 0.028;  // seconds
constexpr double kMostError = 16;      // squares of the width
constexpr double kTwoOnOnePlace = 3;
constexpr double kOffTheHalves = 0.3;
constexpr double kChange = 0.35;
constexpr double kChangeOfKind = 1.0;

bool isThirds(std::size_t division) { return kSteps[division] == 4 || kSteps[division] == 2; }
bool isHalves(std::size_t division) { return kSteps[division] == 6 || kSteps[division] == 3; }

double priceOfDivisions(std::size_t from, std::size_t to) {
  if (from == to) return 0;
  const bool kinds = (isThirds(from) && isHalves(to)) || (isHalves(from) && isThirds(to));
  return kinds ? kChange + kChangeOfKind : kChange;
}

Prices pricesOf(const WritingSettings& settings) {
  Prices prices = settings.division == Division::binary ? kBinaryPrices : kTernaryPrices;
  for (std::size_t i = 0; i < kDivisions; ++i) {
    if (settings.finest < 16 && kSteps[i] < 4) prices[i] = kForbidden;
  }
  return prices;
}

int nearestPlace(const Phase& phase, int step) {
  const double place = static_cast<double>(phase.share) * kTicksOfBeat / step;
  return step * static_cast<int>(std::lround(place));
}

double errorOf(const Phase& phase, int place) {
  const double ticks = static_cast<double>(phase.share) * kTicksOfBeat - place;
  const double far = ticks / kTicksOfBeat * static_cast<double>(phase.length) / kErrorWidth;
  return std::min(kMostError, far * far);
}

/// What the onsets of a beat cost in a division.
double priceOfOnsets(std::span<const Onset> onsets, std::span<const Phase> phases, int step) {
  double sum = 0;
  int before = -1;
  for (std::size_t i = 0; i < onsets.size(); ++i) {
    const int place = nearestPlace(phases[i], step);
    double price = errorOf(phases[i], place) / 2;
    if (place == before) price += kTwoOnOnePlace;
    if (place % 6) price += kOffTheHalves;
    sum += onsets[i].weight * price;
    before = place;
  }
  return sum;
}

}  // namespace

WrittenPlaces writtenPlaces(std::span<const Onset> onsets, std::span<const Phase> phases,
                            std::size_t beats, const WritingSettings& settings) {
  const Prices prices = pricesOf(settings);
  std::vector<std::array<std::uint8_t, kDivisions>> from(beats);
  std::vector<std::size_t> firsts(beats + 1, onsets.size());
  Prices total{};
  std::size_t first = 0;
  for (std::size_t beat = 0; beat < beats; ++beat) {
    std::size_t end = first;
    while (end < onsets.size() && phases[end].beat == beat) ++end;
    firsts[beat] = first;
    Prices next{};
    for (std::size_t d = 0; d < kDivisions; ++d) {
      std::size_t best = d;
      for (std::size_t b = 0; b < kDivisions; ++b) {
        if (total[b] + priceOfDivisions(b, d) < total[best] + priceOfDivisions(best, d)) best = b;
      }
      from[beat][d] = static_cast<std::uint8_t>(best);
      next[d] = total[best] + priceOfDivisions(best, d) +
                prices[d] * (first == end ? kShareOfEmpty : 1) +
                priceOfOnsets(onsets.subspan(first, end - first),
                              phases.subspan(first, end - first), kSteps[d]);
    }
    total = next;
    first = end;
  }
  WrittenPlaces result;
  result.ticks.resize(onsets.size());
  result.division.resize(beats);
  auto d = static_cast<std::size_t>(std::ranges::min_element(total) - total.begin());
  for (std::size_t beat = beats; beat-- > 0;) {
    result.division[beat] = kSteps[d];
    for (std::size_t i = firsts[beat]; i < firsts[beat + 1]; ++i) {
      result.ticks[i] = static_cast<int>(beat) * kTicksOfBeat + nearestPlace(phases[i], kSteps[d]);
    }
    d = from[beat][d];
  }
  return result;
}

}  // namespace korvel::rhythm
