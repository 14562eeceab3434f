// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/harmony/ChordChanges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "rhythm/harmony/ChordTones.h"

namespace korvel::rhythm {
namespace {

/// In seconds.
constexpr double kShortestStretch = 0.09;
constexpr double kLastStretch = 0.5;
constexpr double kWidthOfChange = 0.045;
constexpr double kPriceOfChange = 3.0;
constexpr double kMostChanges = 31;
constexpr double kChangesAnywhere = 0.06;

/// Which share of changes falls on each beat of a bar.
std::array<double, kMostBeats> changesByBeat(std::size_t beats) {
  if (beats == 2) return {.787, .213};
  if (beats == 3) return {.833, .083, .084};
  if (beats == 4) return {.68, .052, .216, .052};
  std::array<double, kMostBeats> shares{.7};
  for (std::size_t i = 1; i < beats; ++i) shares[i] = 0.3 / static_cast<double>(beats - 1);
  return shares;
}

double longerCountsMore(double length) { return std::sqrt(std::min(1.3, length / 0.35)); }

}  // namespace

/// From onset to onset.
struct ChordChanges::Stretches {
  Stretches(std::span<const Onset> onsets, std::span<const fingering::Note> all) : notes(all) {
    for (const Onset& onset : onsets) {
      if (!times.empty() && onset.first < times.back() + kShortestStretch) {
        struck.back().push_back(&onset);
        continue;
      }
      times.push_back(onset.first);
      struck.push_back({&onset});
    }
    if (!times.empty()) times.push_back(times.back() + kLastStretch);
    sounding = soundingBetween(times, notes);
  }

  int lowest(std::size_t i) const {
    int pitch = struck[i].front()->lowest;
    for (const Onset* onset : struck[i]) pitch = std::min(pitch, onset->lowest);
    return pitch;
  }

  bool belongsTo(std::size_t i, std::size_t chord) const {
    const unsigned tones = tonesOf(chord);
    return std::ranges::all_of(struck[i], [&](const Onset* onset) {
      return std::ranges::all_of(onset->notes, [&](std::size_t n) {
        return tones >> (notes[n].pitch % kPitchClasses) & 1U;
      });
    });
  }

  std::span<const fingering::Note> notes;
  std::vector<double> times;
  std::vector<std::vector<const Onset*>> struck;
  std::vector<Sounding> sounding;
};

ChordChanges::ChordChanges(std::span<const Onset> onsets, std::span<const fingering::Note> notes) {
  const Stretches stretches(onsets, notes);
  std::vector<ChordScores> scores;
  for (std::size_t i = 0; i < stretches.sounding.size(); ++i) {
    scores.push_back(scoresOfChords(stretches.sounding[i]));
    const double factor = longerCountsMore(stretches.times[i + 1] - stretches.times[i]);
    for (float& score : scores.back()) score *= static_cast<float>(factor);
  }
  const std::vector<double> prices(scores.size(), kPriceOfChange);
  find(stretches, bestChords(scores, prices));
}

void ChordChanges::find(const Stretches& stretches, std::span<const std::size_t> chords) {
  double explained = 0, all = 0;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const Explained part = explainedBy(chords[i], stretches.sounding[i]);
    explained += part.share * part.all;
    all += part.all;
    if (i == 0 || chords[i] == chords[i - 1]) continue;
    const double time = stretches.times[putBack(stretches, i, chords[i])];
    if (m_times.empty() || time > m_times.back()) m_times.push_back(time);
  }
  const double share = all > 0 ? explained / all : 0;
  m_trust = std::clamp((share - 0.86) / 0.1, 0.1, 1.0);
}

/// The bass note before a change often belongs to the new chord.
std::size_t ChordChanges::putBack(const Stretches& stretches, std::size_t at,
                                  std::size_t chord) const {
  constexpr std::size_t kMostBack = 2;
  constexpr double kLongestBack = 1.2;
  constexpr int kDeeper = 3;
  std::size_t result = at;
  for (std::size_t back = 1; back <= kMostBack && back < at; ++back) {
    const std::size_t i = at - back;
    if (stretches.times[at] - stretches.times[i] > kLongestBack) break;
    if (!stretches.belongsTo(i, chord)) break;
    const int lowest = stretches.lowest(i);
    if (lowest + kDeeper <= stretches.lowest(i + 1) || lowest % kPitchClasses == rootOf(chord)) {
      result = i;
    }
  }
  return result;
}

double ChordChanges::fit(const BeatTrack& track, const Bars& bars) const {
  if (m_times.empty()) return 0;
  const auto shares = changesByBeat(bars.beats);
  const double peak = 1 / (kWidthOfChange * std::sqrt(2 * std::numbers::pi));
  double sum = 0;
  std::size_t beat = 0;
  for (const double time : m_times) {
    while (beat + 2 < track.size() && track[beat + 1] <= time) ++beat;
    const double length = track[beat + 1] - track[beat];
    double density = 0;
    for (const std::size_t i : {beat, beat + 1}) {
      const double far = (time - track[i]) / kWidthOfChange;
      density += shares[bars.of(i)] * peak * std::exp(-far * far / 2);
    }
    sum += std::log((1 - kChangesAnywhere) * length * static_cast<double>(bars.beats) * density +
                    kChangesAnywhere);
  }
  const auto count = static_cast<double>(m_times.size());
  return m_trust * std::min(kMostChanges, count) * sum / count;
}

}  // namespace korvel::rhythm
