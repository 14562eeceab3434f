// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "chords/judging/BeatEvidence.h"
#include "chords/judging/SearchWeights.h"

namespace korvel::chords {

inline constexpr std::size_t kSearched = kClasses * kSearchedKinds;
/// Stands after the chords.
inline constexpr std::size_t kNone = kSearched;

/// How well each chord explains a beat. Chord root * kSearchedKinds + kind.
using Scores = std::array<float, kSearched + 1>;

/// Compares beats with all chords that are searched for.
class ChordScores {
 public:
  explicit ChordScores(const SearchWeights& weights);
  Scores of(const BeatEvidence& beat) const;

 private:
  float byNotes(const NoteEvidence& notes, std::size_t root, std::size_t kind, float all) const;

  SearchWeights m_weights;
  std::array<Chroma, kSearchedKinds> m_treble{};  ///< On C, as directions.
  std::array<Chroma, kSearchedKinds> m_bass{};
};

/// Without what passes for fifths and thirds of loud tones.
Chroma withoutPartials(const Chroma& treble, const SearchWeights& weights);

}  // namespace korvel::chords
