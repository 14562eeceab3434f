// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/BarFit.h"

#include <array>
#include <cassert>
#include <cmath>

namespace korvel::rhythm {
namespace {

/// How many onsets the profile of all beats counts for, against that of each.
constexpr double kOfAllBeats = 45;
/// How much an accent decides on which beats of a bar notes stand.
constexpr double kAccentOnBeats = 0.8;
constexpr int kBarRounds = 2;

using BarShares = std::array<PlaceShares, kMostBeats>;

/// How much an accent speaks for a beat of the bar, -1..1.
double accentOfBeat(std::size_t beat, std::size_t beats) {
  if (beat == 0) return 1;
  if (beats == 4 && beat == 2) return 0.2;
  return -1.0 / static_cast<double>(beats - 1);
}

class BarProfile {
 public:
  BarProfile(std::span<const Onset> onsets, std::span<const Phase> phases, const PlaceFit& beats,
             const Bars& bars)
      : m_onsets(onsets), m_phases(phases), m_bars(bars) {
    assert(bars.beats >= 2 && bars.beats <= kMostBeats);
    for (const Onset& onset : onsets) m_weight += onset.weight;
    for (std::size_t k = 0; k < kPlaces; ++k) m_ofPlace[k] = beats.profile[k];
    for (std::size_t b = 0; b < bars.beats; ++b) {
      for (std::size_t k = 0; k < kPlaces; ++k) {
        m_even[k] = beats.profile[k] / static_cast<double>(bars.beats);
      }
      m_profile[b] = m_even;
      m_accents[b] = kAccentOnBeats * accentOfBeat(b, bars.beats);
    }
  }

  void learn() {
    BarShares counts{};
    for (std::size_t i = 0; i < m_onsets.size(); ++i) {
      const double scale = m_onsets[i].weight / (kAnywhere + explained(i));
      const std::size_t beat = m_bars.of(m_phases[i].beat);
      for (std::size_t k = 0; k < kPlaces; ++k) counts[beat][k] += scale * m_parts[k];
      counts[after(beat)][0] += scale * m_nextPart;
    }
    const double scale = m_weight > 0 ? kWitnesses / m_weight : 0;
    double sum = 0;
    for (std::size_t b = 0; b < m_bars.beats; ++b) {
      for (double& count : counts[b]) sum += count *= scale;
    }
    for (std::size_t b = 0; b < m_bars.beats; ++b) {
      for (std::size_t k = 0; k < kPlaces; ++k) {
        m_profile[b][k] = (counts[b][k] + kOfAllBeats * m_even[k]) / (sum + kOfAllBeats);
      }
    }
    m_ofPlace.fill(0);
    for (std::size_t b = 0; b < m_bars.beats; ++b) {
      for (std::size_t k = 0; k < kPlaces; ++k) m_ofPlace[k] += m_profile[b][k];
    }
  }

  double likelihood() {
    double sum = 0;
    for (std::size_t i = 0; i < m_onsets.size(); ++i) {
      sum += m_onsets[i].weight * std::log(explained(i) + kAnywhere);
    }
    return m_weight > 0 ? kWitnesses * sum / m_weight : 0;
  }

  /// How far the beats' profiles are from one for all.
  double unlike() const {
    double sum = 0;
    for (std::size_t b = 0; b < m_bars.beats; ++b) {
      for (std::size_t k = 0; k < kPlaces; ++k) {
        sum += m_even[k] * std::log(m_even[k] / m_profile[b][k]);
      }
    }
    return kOfAllBeats * sum;
  }

 private:
  std::size_t after(std::size_t beat) const { return beat + 1 < m_bars.beats ? beat + 1 : 0; }

  /// How probable an onset's time is by all places of the bar; by those of its beat in m_parts, and
  /// by the next beat in m_nextPart.
  double explained(std::size_t i) {
    const Onset& onset = m_onsets[i];
    const Phase& phase = m_phases[i];
    const std::size_t beat = m_bars.of(phase.beat);
    std::array<double, kMostBeats> onBeat;
    double norm = 0;
    for (std::size_t b = 0; b < m_bars.beats; ++b) {
      const double accent = onset.barAccent * m_accents[b];  // near enough to 0 for its exponential
      onBeat[b] = static_cast<double>(onset.favour[0]) * (1 + accent * (1 + accent / 2));
      norm += m_profile[b][0] * onBeat[b];
    }
    for (std::size_t k = 1; k < kPlaces; ++k) {
      norm += m_ofPlace[k] * static_cast<double>(onset.favour[k]);
    }
    const double scale = (1 - kAnywhere) * static_cast<double>(m_bars.beats) *
                         static_cast<double>(phase.length) / norm;
    m_parts[0] = scale * m_profile[beat][0] * onBeat[beat] * static_cast<double>(phase.density[0]);
    const std::size_t next = after(beat);
    m_nextPart =
        scale * m_profile[next][0] * onBeat[next] * static_cast<double>(phase.density[kPlaces]);
    double sum = m_parts[0] + m_nextPart;
    for (std::size_t k = 1; k < kPlaces; ++k) {
      m_parts[k] = scale * m_profile[beat][k] * static_cast<double>(onset.favour[k]) *
                   static_cast<double>(phase.density[k]);
      sum += m_parts[k];
    }
    return sum;
  }

  std::span<const Onset> m_onsets;
  std::span<const Phase> m_phases;
  Bars m_bars;
  double m_weight = 0;
  PlaceShares m_even{};
  BarShares m_profile{};
  PlaceShares m_ofPlace{};  ///< The sum of the profiles of all beats.
  std::array<double, kMostBeats> m_accents{};
  PlaceShares m_parts{};
  double m_nextPart = 0;
};

}  // namespace

double barFit(std::span<const Onset> onsets, std::span<const Phase> phases, const PlaceFit& beats,
              const Bars& bars) {
  BarProfile fit(onsets, phases, beats, bars);
  for (int i = 0; i < kBarRounds; ++i) fit.learn();
  return fit.likelihood() - fit.unlike() - beats.unlike;
}

}  // namespace korvel::rhythm
