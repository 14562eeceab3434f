// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>

#include "chords/judging/BeatEvidence.h"
#include "chords/judging/SearchWeights.h"

namespace korvel::chords {

/// How beats make bars.
struct BarGrid {
  std::size_t beats = 4;  ///< Of a bar.
  std::size_t first = 0;  ///< The first beat that a bar begins with; less than `beats`.
};

/// The bars on whose lines most chords change. What was read so far stays unless others fit clearly
/// better; bars of three beats may become bars of four and the other way round.
BarGrid barsByChords(std::span<const BeatEvidence> beats, const BarGrid& read,
                     const SearchWeights& weights = {});

}  // namespace korvel::chords
