// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "chords/voices/Voice.h"

namespace korvel::chords {

// Log-linear weights that were fitted to generated bands whose voices are known, each by the name
// of what it weighs. `VoiceEvidence.cpp` computes that.

/// For a tone to be the one that the voice has.
struct SoundWeights {
  // Of how strongly it sounds, 1 for the strongest of the voice's range at that place ...
  float tone, toneSquared;
  float toneOfAll;  ///< ... and 1 for what is strong in the whole recording.
  float octaveAbove, octaveBelow, fifthAbove, twelfthAbove, twelfthBelow;
  // The same of the peak of its fundamental in the spectrum.
  float peak, peakOfAll;
  float peakTwoOctavesAbove, peakOctaveBelow, peakFifthAbove;
  float peakOverNeighbours;
  // Power of all tones above and below it.
  float above, below;
  float ofChord;
  // By how many octaves it is from the middle of the range.
  float height, heightSquared;
};

/// For the voice to rest.
struct RestWeights {
  float always, tone, peak, level, powerOfTones;
};

/// For a tone that sounds on to be struck again.
struct RestrikeWeights {
  float always;
  // By how much it has become stronger since the place before, and does until the next one.
  float risen, rises, peakRisen, peakRises;
  float stroke, lowStroke;
  float onBeat, onHalf;
  float toneOfAll;
};

/// Of the search, in units of its scores.
struct VoicePrices {
  float heard;     ///< How much what is heard counts beside these.
  float leap;      ///< For each semitone from tone to tone, up to an octave.
  float start;     ///< After a rest.
  float change;    ///< Of tones.
  float again;     ///< For a tone that is struck again.
  float restrike;  ///< How much the evidence for and against that counts.
  float stop;      ///< Before a rest.
  float between;   ///< For a tone that begins neither on a beat nor on its half.
};

struct VoiceWeights {
  int lowest, highest;  ///< The tones that the voice may have, MIDI numbers.
  SoundWeights sound;
  RestWeights rest;
  RestrikeWeights restrike;
  VoicePrices prices;
  /// What is less is not clear enough: of the probability of its tones, and of that times the root
  /// of the share of time in which it sounds.
  float leastProbability, leastClearness;
};

const VoiceWeights& weightsOf(Voice voice);

}  // namespace korvel::chords
