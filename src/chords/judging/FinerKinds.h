// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "chords/Chord.h"
#include "chords/judging/BeatEvidence.h"
#include "chords/judging/SearchWeights.h"

namespace korvel::chords {

/// What sounds in a span, with pitch classes counted from its root: in the treble, of which the
/// stronger of root and fifth is 1, in the bass, of which the strongest is 1, and of the notes.
struct AboveRoot {
  Chroma treble{};
  Chroma bass{};
  Chroma notes{};
  std::size_t firstBass = 0;  ///< The strongest in the bass on its first beat.

  /// In the treble and in the notes, the more of both thirds.
  float thirds() const;
  float thirdsOfNotes() const;
};

AboveRoot aboveRoot(int root, std::span<const BeatEvidence> beats, const SearchWeights& weights);

/// What the search did not tell apart: the chord with its ninths and sixths, its suspension, its
/// bass. It takes more than a passing tone to add something to a name.
/// fewThirds: most of the recording lacks them, as one of power chords does.
Chord finerChord(const Chord& chord, const AboveRoot& heard, bool fewThirds);

}  // namespace korvel::chords
