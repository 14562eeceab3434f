// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/BandSound.h"
#include "chords/voices/VoiceWeights.h"

namespace korvel::chords {

/// A place of the grid, at which a tone of a voice may begin.
struct VoicePlace {
  enum class Kind { onBeat, onHalf, between };

  double time = 0;  ///< Seconds.
  Kind kind = Kind::onBeat;
  unsigned chord = 0;  ///< The pitch classes of the chord there, bit n for pitch class n.
};

/// What is heard of a voice from one place to the next.
struct VoiceEvidence {
  /// Logarithms of probabilities: that it has each tone, from the lowest of its range on, or rests.
  std::vector<float> sounds;
  float rests = 0;
  VoicePlace::Kind kind = VoicePlace::Kind::onBeat;
  /// Log-odds that each tone is struck again, if it sounds on from the place before.
  std::vector<float> restrikes;
};

/// One for each place; the last one lasts until `end`. The sound has tones.
std::vector<VoiceEvidence> voiceEvidence(const BandSound& sound, std::span<const VoicePlace> places,
                                         double end, const VoiceWeights& weights);

}  // namespace korvel::chords
