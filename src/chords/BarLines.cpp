// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/BarLines.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "chords/ChordFinder.h"

namespace korvel::chords {
namespace {

/// A score must be so much better, in the logarithm of a probability.
constexpr double kStays = 4;
/// Bars of three beats are rarer.
constexpr double kRareMetre = 1.5;
/// Changes after these say little that is new.
constexpr double kMostChanges = 31;

/// Which share of changes falls on a beat of a bar, in comparison with anywhere.
double favourOf(std::size_t beatOfBar, std::size_t beats) {
  if (beats == 3) return beatOfBar == 0 ? 2.5 : 0.25;
  if (beats == 2) return beatOfBar == 0 ? 1.57 : 0.43;
  if (beatOfBar == 0) return 2.72;
  return beatOfBar == 2 ? 0.86 : 0.21;
}

double fitOf(std::span<const std::size_t> changes, const BarGrid& bars) {
  double sum = 0;
  for (const std::size_t beat : changes)
    sum += std::log(favourOf((beat + bars.beats - bars.first) % bars.beats, bars.beats));
  const auto count = static_cast<double>(changes.size());
  return changes.empty() ? 0 : sum * std::min(kMostChanges, count) / count;
}

/// Of chords that were found without bars.
std::vector<std::size_t> changesOf(std::span<const BeatEvidence> beats,
                                   const SearchWeights& weights) {
  SearchWeights plain = weights;
  plain.change = (weights.change + weights.changeOnBarLine) / 2;
  plain.leastSure = 0;  // Vague chords may change on bar lines all the same.
  std::vector<BeatEvidence> alike(beats.begin(), beats.end());
  for (BeatEvidence& beat : alike) beat.onBarLine = false;
  std::vector<std::size_t> changes;
  for (const FoundSpan& span : findChords(alike, plain).spans)
    if (span.from > 0) changes.push_back(span.from);
  return changes;
}

}  // namespace

BarGrid barsByChords(std::span<const BeatEvidence> beats, const BarGrid& read,
                     const SearchWeights& weights) {
  const std::vector<std::size_t> changes = changesOf(beats, weights);
  std::vector<std::size_t> metres{read.beats};
  if (read.beats == 3) metres.push_back(4);
  if (read.beats == 4) metres.push_back(3);
  BarGrid best = read;
  double most = fitOf(changes, read) + kStays;
  for (const std::size_t metre : metres) {
    for (std::size_t first = 0; first < metre; ++first) {
      const double rare = metre == 3 && read.beats != 3 ? kRareMetre : 0;
      const double fit = fitOf(changes, {metre, first}) - rare;
      if (fit <= most) continue;
      most = fit;
      best = {metre, first};
    }
  }
  return best;
}

}  // namespace korvel::chords
