// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/score/Score.h"

namespace korvel {

/// A note as it is written: E flat 3 is {'E', -1, 3}, and 4 the octave of the middle C.
struct SpelledNote {
  char step;
  int alter;  ///< Half tones, -1 for a flat.
  int octave;

  bool operator==(const SpelledNote&) const = default;
};

/// How many sharps the key is written with; flats are below 0, at most six of either.
int fifthsOf(const ScoreKey& key);

/// A tone of a chord is spelled by its place in it, so that the third of C#m is E and its fifth G#.
/// Without a harmony, and where that would take double accidentals, the names are those of the key,
/// with the accidentals that are usual in it, so that F major has Bb and E major G#; without a key
/// those of the program: C, C#, D, Eb, E, F, F#, G, Ab, A, Bb, B. pitch: MIDI number.
SpelledNote spelled(int pitch, const ScoreHarmony* harmony = nullptr,
                    const ScoreKey* key = nullptr);

}  // namespace korvel
