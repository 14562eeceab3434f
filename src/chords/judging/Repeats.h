// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/judging/BeatEvidence.h"
#include "chords/judging/KeyChordPrices.h"
#include "chords/judging/SearchWeights.h"

namespace korvel::chords {

/// Lets passages that come again witness for each other: where the same chords are likely for some
/// bars as at another place, the scores of both become their mean, beat by beat, the less the
/// clearer two beats contradict each other, and a little surer than a mean. probable: of each beat,
/// how probable each chord is (`probabilities`). A few million operations a minute; looks back some
/// minutes.
std::vector<ScoredBeat> withRepeats(std::span<const BeatEvidence> evidence,
                                    std::span<const ScoredBeat> beats,
                                    std::span<const Scores> probable, const SearchWeights& weights);

}  // namespace korvel::chords
