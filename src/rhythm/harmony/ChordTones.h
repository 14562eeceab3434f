// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

inline constexpr int kPitchClasses = 12;
inline constexpr int kQualities = 5;
inline constexpr std::size_t kChords = kPitchClasses * kQualities;
/// Stands after the chords: nothing sounds.
inline constexpr std::size_t kNoChord = kChords;

using ChordScores = std::array<float, kChords + 1>;

/// What sounds in a stretch of time.
struct Sounding {
  std::array<float, kPitchClasses> weights{};  ///< Of each pitch class.
  int bass = -1;                               ///< Pitch class of the lowest note, if it is low.
};

/// Whether strings were chosen for notes. What no string plays is hardly a note then, and says
/// nothing of chords and key.
bool areFingered(std::span<const fingering::Note> notes);

/// What sounds from each of these times to the next one; `times` ascend. Notes by onset.
std::vector<Sounding> soundingBetween(std::span<const double> times,
                                      std::span<const fingering::Note> notes);

/// How well each chord explains what sounds. Chord root * kQualities + quality.
ChordScores scoresOfChords(const Sounding& sounding);

/// The share of what sounds that belongs to a chord, and all that sounds.
struct Explained {
  double share = 0;
  double all = 0;
};
Explained explainedBy(std::size_t chord, const Sounding& sounding);

/// Pitch classes of a chord, as bits.
unsigned tonesOf(std::size_t chord);

inline int rootOf(std::size_t chord) {
  return chord == kNoChord ? -1 : static_cast<int>(chord) / kQualities;
}
inline Quality qualityOf(std::size_t chord) {
  return chord == kNoChord ? Quality::major : static_cast<Quality>(chord % kQualities);
}

/// The best chord of each stretch, when each change has a price.
std::vector<std::size_t> bestChords(std::span<const ChordScores> scores,
                                    std::span<const double> prices);

}  // namespace korvel::rhythm
