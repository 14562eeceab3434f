// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/PlaceFit.h"

#include <array>
#include <cmath>

namespace korvel::rhythm {
namespace {

constexpr std::array kWidths{0.018, 0.026, 0.038};
/// How many onsets the usual shares count for, against those of the piece.
constexpr double kUsual = 25;
constexpr int kPlaceRounds = 2;

class BeatProfile {
 public:
  BeatProfile(std::span<const Onset> onsets, std::span<const Phase> phases, Division division)
      : m_onsets(onsets), m_phases(phases), m_usual(usualShares(division)), m_profile(m_usual) {
    for (const Onset& onset : onsets) m_weight += onset.weight;
  }

  /// Counts onsets at the places by the profile so far.
  void learn() {
    PlaceShares counts{};
    for (std::size_t i = 0; i < m_onsets.size(); ++i) {
      const double scale = m_onsets[i].weight / (kAnywhere + explained(i));
      for (std::size_t k = 0; k < kPlaces; ++k) counts[k] += scale * m_parts[k];
    }
    const double scale = m_weight > 0 ? kWitnesses / m_weight : 0;
    double sum = 0;
    for (double& count : counts) sum += count *= scale;
    for (std::size_t k = 0; k < kPlaces; ++k) {
      m_profile[k] = (counts[k] + kUsual * m_usual[k]) / (sum + kUsual);
    }
  }

  PlaceFit result() {
    double likelihood = 0, unlike = 0;
    for (std::size_t i = 0; i < m_onsets.size(); ++i) {
      likelihood += m_onsets[i].weight * std::log(explained(i) + kAnywhere);
    }
    for (std::size_t k = 0; k < kPlaces; ++k) {
      unlike += m_usual[k] * std::log(m_usual[k] / m_profile[k]);
    }
    const double mean = m_weight > 0 ? likelihood / m_weight : 0;
    return {kWitnesses * mean - kUsual * unlike, kUsual * unlike, m_profile, 0};
  }

 private:
  /// How probable an onset's time is by all places, and by each of them in m_parts.
  double explained(std::size_t i) {
    const Onset& onset = m_onsets[i];
    const Phase& phase = m_phases[i];
    double norm = 0, sum = 0;
    for (std::size_t k = 0; k < kPlaces; ++k) {
      const double share = m_profile[k] * static_cast<double>(onset.favour[k]);
      const float density = k == 0 ? phase.density[0] + phase.density[kPlaces] : phase.density[k];
      norm += share;
      m_parts[k] = share * static_cast<double>(density);
    }
    const double scale = (1 - kAnywhere) * static_cast<double>(phase.length) / norm;
    for (double& part : m_parts) sum += part *= scale;
    return sum;
  }

  std::span<const Onset> m_onsets;
  std::span<const Phase> m_phases;
  const PlaceShares& m_usual;
  PlaceShares m_profile;
  double m_weight = 0;
  PlaceShares m_parts{};
};

}  // namespace

PlaceFit placeFit(std::span<const Onset> onsets, std::span<const Phase> phases, Division division) {
  BeatProfile fit(onsets, phases, division);
  for (int i = 0; i < kPlaceRounds; ++i) fit.learn();
  return fit.result();
}

PlaceFit bestPlaceFit(std::span<const Onset> onsets, OnsetPhases& phases, Division division) {
  PlaceFit best;
  for (const double width : kWidths) {
    phases.setWidth(width);
    PlaceFit fit = placeFit(onsets, phases.all(), division);
    fit.width = width;
    if (best.width == 0 || fit.score > best.score) best = fit;
  }
  phases.setWidth(best.width);
  return best;
}

}  // namespace korvel::rhythm
