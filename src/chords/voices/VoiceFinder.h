// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/BandSound.h"
#include "chords/voices/Voice.h"
#include "chords/voices/VoiceEvidence.h"

namespace korvel::chords {

/// A voice as it was heard.
struct FoundVoice {
  std::vector<VoiceNote> notes;  ///< By their places, none overlaps another.
  /// How probable its tones are on average, times the root of the share of time in which it
  /// sounds, 0..1.
  float clearness = 0;
  /// Whether it is worth being written down. What is not may be other instruments' tones.
  bool isClear = false;
};

/// Hears a voice in a sound that has tones (`BandEar`), on the places of a grid, which ascend; the
/// last one lasts until `end`, in seconds.
FoundVoice findVoice(Voice voice, const BandSound& sound, std::span<const VoicePlace> places,
                     double end);

}  // namespace korvel::chords
