// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "chords/judging/ChordScores.h"
#include "chords/judging/KeyTables.h"

namespace korvel::chords {

/// A value for each chord that may sound in a key, or none.
using InKey = std::array<float, kSearched + 1>;
/// The same for each key. Key mode * 12 + tonic.
using InKeys = std::array<InKey, kKeys>;

/// What the search pays for chords in keys.
struct KeyChordPrices {
  explicit KeyChordPrices(const SearchWeights& weights);

  InKeys beat{};   ///< For each beat of a chord,
  InKeys entry{};  ///< and where it begins, beside that of any change.
};

/// A beat as the search sees it.
struct ScoredBeat {
  Scores scores{};
  float change = 0;  ///< The price of another chord.
};

}  // namespace korvel::chords
