// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/voices/VoiceFinder.h"

#include <cmath>

#include "chords/voices/VoiceSearch.h"
#include "chords/voices/VoiceWeights.h"

namespace korvel::chords {

FoundVoice findVoice(Voice voice, const BandSound& sound, std::span<const VoicePlace> places,
                     double end) {
  const VoiceWeights& weights = weightsOf(voice);
  FoundVoice found;
  found.notes = bestLine(voiceEvidence(sound, places, end, weights), weights);
  if (found.notes.empty()) return found;
  float sum = 0, sounding = 0;
  for (const VoiceNote& note : found.notes) {
    const auto length = static_cast<float>(note.to - note.from);
    sum += length * note.probability;
    sounding += length;
  }
  const float probability = sum / sounding;
  found.clearness = probability * std::sqrt(sounding / static_cast<float>(places.size()));
  found.isClear =
      probability >= weights.leastProbability && found.clearness >= weights.leastClearness;
  return found;
}

}  // namespace korvel::chords
