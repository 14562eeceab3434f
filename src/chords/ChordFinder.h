// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "chords/Chord.h"
#include "chords/judging/BeatEvidence.h"
#include "chords/judging/ChordScores.h"
#include "chords/judging/KeyTables.h"
#include "chords/judging/SearchWeights.h"

namespace korvel::chords {

/// One chord from a beat to a later one.
struct FoundSpan {
  std::size_t from = 0;  ///< Beats, counted from 0.
  std::size_t to = 0;
  Chord chord;
  double probability = 0;  ///< That it is this chord, 0..1.
};

/// The chords of a recording.
struct FoundChords {
  std::vector<FoundSpan> spans;  ///< Without gaps, neighbours differ.
  /// Of each beat, how probable each chord is that was searched for.
  std::vector<Scores> beats;
  int tonic = -1;  ///< Of the key that most of it is in; -1 where there are no chords.
  Mode mode = Mode::major;
};

/// Finds chords and key of beats together: each beat is compared with all chords, and a search
/// finds the sequence that explains most, in which chords last, change on bar lines and belong to a
/// key.
FoundChords findChords(std::span<const BeatEvidence> beats, const SearchWeights& weights = {});

}  // namespace korvel::chords
