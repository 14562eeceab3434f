// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "chords/judging/KeyChordPrices.h"

namespace korvel::chords {

/// A chord in a key.
struct InItsKey {
  std::size_t key = 0;
  std::size_t chord = kNone;
};

/// The best chord and key of each beat, found together. Takes about a thousand bytes a beat.
std::vector<InItsKey> bestPath(std::span<const ScoredBeat> beats, const KeyChordPrices& prices,
                               float keyChange);

/// How probable each chord is in each beat, whatever the key. trust: which share of all scores
/// counts. Takes a few hundred bytes a beat.
std::vector<Scores> probabilities(std::span<const ScoredBeat> beats, const KeyChordPrices& prices,
                                  float keyChange, float trust);

}  // namespace korvel::chords
