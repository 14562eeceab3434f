// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/BeatFit.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "rhythm/beats/BandedSystem.h"

namespace korvel::rhythm {
namespace {

constexpr int kFitRounds = 3;
constexpr double kOffTheBeat = 0.5;
/// An onset that is further from each place, in seconds, is hardly one of them.
constexpr double kFar = 0.070;
constexpr double kWeightOfFar = 0.05;
constexpr double kWeightOfFixed = 1e5;
/// Keeps beats where they are that nothing else holds.
constexpr double kHold = 1e-5;
/// A tempo that jumps is one for some beats and clearly another one for as many after them.
constexpr std::size_t kBeatsOfTempo = 4;
constexpr double kLeastJump = 0.09;  // logarithms of lengths
constexpr double kSameTempo = 0.045;
constexpr double kSmoothAtJump = 0.002;
/// No beat gets shorter, in seconds.
constexpr double kLeastBeat = 0.08;

/// The next of the places that matter to where beats are, as a share of a beat.
double nearestPlace(double share, Division division) {
  const double parts = division == Division::binary ? 4 : 3;
  return std::round(share * parts) / parts;
}

/// The equations that one round solves: of each beat's time.
class Round {
 public:
  Round(const BeatTrack& track, const BeatFitSettings& settings)
      : m_track(track), m_settings(settings), m_system(track.size()) {}

  void addOnsets(std::span<const Onset> onsets) {
    std::size_t beat = 0;
    for (const Onset& onset : onsets) {
      while (beat + 2 < m_track.size() && m_track[beat + 1] <= onset.time) ++beat;
      addOnset(onset, beat);
    }
  }

  /// jumps: the beats at which the tempo may change at once, ascending.
  void addSmoothness(std::span<const std::size_t> jumps) {
    for (std::size_t i = 0; i + 2 < m_track.size(); ++i) {
      const bool isJump = std::ranges::binary_search(jumps, i + 1);
      m_system.add(i, {1, -2, 1}, 0, (isJump ? kSmoothAtJump : 1) * m_settings.smoothness);
    }
    for (std::size_t i = 0; i < m_track.size(); ++i) m_system.add(i, {1, 0, 0}, m_track[i], kHold);
  }

  void addFixed() {
    for (const double time : m_settings.fixed) {
      const auto after = std::ranges::lower_bound(m_track, time);
      auto at = static_cast<std::size_t>(after - m_track.begin());
      if (at == m_track.size()) --at;
      if (at > 0 && time - m_track[at - 1] < std::abs(m_track[at] - time)) --at;
      m_system.add(at, {1, 0, 0}, time, kWeightOfFixed);
    }
  }

  BeatTrack solved() { return m_system.solve(); }

 private:
  void addOnset(const Onset& onset, std::size_t beat) {
    const double length = m_track[beat + 1] - m_track[beat];
    const double share = (onset.time - m_track[beat]) / length;
    if (share < -0.5 || share > 1.5) return;
    const double place = nearestPlace(share, m_settings.division);
    double weight = onset.weight;
    if (place > 0 && place < 1) weight *= kOffTheBeat;
    if (std::abs(share - place) * length > kFar) weight *= kWeightOfFar;
    m_system.add(beat, {1 - place, place, 0}, onset.time, weight);
  }

  const BeatTrack& m_track;
  const BeatFitSettings& m_settings;
  BandedSystem m_system;
};

/// The logarithm of the mean length of some beats, if they are alike.
std::optional<double> tempoOf(const BeatTrack& track, std::size_t first) {
  const double mean = (track[first + kBeatsOfTempo] - track[first]) / kBeatsOfTempo;
  for (std::size_t i = first; i < first + kBeatsOfTempo; ++i) {
    if (std::abs(std::log((track[i + 1] - track[i]) / mean)) > kSameTempo) return std::nullopt;
  }
  return std::log(mean);
}

std::vector<std::size_t> jumpsOf(const BeatTrack& track) {
  std::vector<std::size_t> jumps;
  for (std::size_t i = kBeatsOfTempo; i + kBeatsOfTempo < track.size(); ++i) {
    const auto before = tempoOf(track, i - kBeatsOfTempo), after = tempoOf(track, i);
    if (before && after && std::abs(*before - *after) > kLeastJump) jumps.push_back(i);
  }
  return jumps;
}

bool ascends(const BeatTrack& track) {
  return std::ranges::adjacent_find(
             track, [](double a, double b) { return !(b - a >= kLeastBeat); }) == track.end();
}

}  // namespace

void fitBeats(BeatTrack& track, std::span<const Onset> onsets, const BeatFitSettings& settings) {
  const std::vector<std::size_t> jumps = jumpsOf(track);
  for (int i = 0; i < kFitRounds; ++i) {
    Round round(track, settings);
    round.addOnsets(onsets);
    round.addSmoothness(jumps);
    round.addFixed();
    BeatTrack moved = round.solved();
    if (!ascends(moved)) return;
    track = std::move(moved);
  }
}

}  // namespace korvel::rhythm
