// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace korvel::rhythm {

/// What speaks for or against a reading. Each is multiplied by its weight.
enum class Feature : std::size_t {
  barFit,            ///< How well onsets stand on the places of its bars.
  chordFit,          ///< How well changes of chords fall on its bar lines.
  tempo,             ///< Octaves above 108 beats a minute,
  tempoSquared,      ///< and the square of that.
  barLength,         ///< Octaves of the bar's length above 2.1 seconds,
  barLengthSquared,  ///< and the square of that.
  bend,              ///< How much the tempo changes, in shares a minute.
  binaryFour,        ///< 1 for the metre that it has: beats of the bar, how they are divided.
  binaryThree,
  binaryTwo,
  ternaryFour,
  ternaryThree,
  ternaryTwo,
  startsOnBar,          ///< The first onset is on a bar line.
  endsOnBar,            ///< The last one is.
  notSix,               ///< Two ternary beats, which have not the notes of 6/8.
  ternaryTempo,         ///< As tempo, for beats divided by three,
  sixTempo,             ///< and for two of them in a bar.
  onsetsOfBeat,         ///< Octaves of the number of onsets in a beat above 1.5,
  onsetsOfBeatSquared,  ///< and the square of that.
  emptyBeats,           ///< The share of beats on which no onset is.
  fine,                 ///< The share of onsets that are on quarters and sixths of a beat.
  idleTernary,          ///< Beats divided by three, of which the thirds are not used.
  changesOfBar,         ///< Octaves of the number of chord changes in a bar above 0.7,
  changesOfBarSquared,  ///< and the square of that.
  beatFit,              ///< How well onsets stand on the places of its beats.
  halfInTernary,        ///< The share of onsets on the halves of beats divided by three,
  thirdsOfSix,          ///< of those on the first third, of two beats,
  thirdsOfTriplets,     ///< and of more.
  takeOnBar,            ///< How near the beginning of the recording is to a bar line, 0..1.
  // How much the cues of onsets on beats are above those of others,
  beatLoud,
  beatLong,
  beatLow,
  beatStroke,
  beatHeld,
  beatFresh,
  beatAgain,
  // and those on bar lines above those on other beats.
  barLoud,
  barLong,
  barLow,
  barStroke,
  barHeld,
  barFresh,
  barAgain,
  count
};

inline constexpr std::size_t kFeatures = static_cast<std::size_t>(Feature::count);

class ReadingFeatures {
 public:
  /// Sets a feature and those after it.
  void setFrom(Feature first, std::span<const double> values) {
    std::ranges::copy(values, m_values.begin() + static_cast<std::ptrdiff_t>(first));
  }
  double& operator[](Feature feature) { return m_values[static_cast<std::size_t>(feature)]; }
  double operator[](Feature feature) const { return m_values[static_cast<std::size_t>(feature)]; }
  const std::array<double, kFeatures>& values() const { return m_values; }

 private:
  std::array<double, kFeatures> m_values{};
};

}  // namespace korvel::rhythm
