// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "fingering/Note.h"
#include "platform/sound/SampleRate.h"
#include "precise/seeing/FrameTable.h"

namespace korvel::precise {

using fingering::Note;

/// What the precise detection found in a recording.
struct Analysis {
  /// Pitches that are heard, D2 to Eb6.
  static constexpr int kLowestPitch = 38;
  static constexpr int kPitches = 50;
  /// Seconds from one frame to the next. Frame t is centred at t * kHopSeconds.
  static constexpr double kHopSeconds = 256 / (platform::kSampleRate / 2.0);

  /// A candidate that is less probable than this is not worth handing out.
  static constexpr double kLeastDoubtful = 0.05;

  /// By onset, equal onsets by pitch.
  std::vector<Note> notes;
  /// What may have been a note too but was not taken for one, in the same order: less probable than
  /// was asked for, or weaker than six others, and of a probability of kLeastDoubtful at least. Has
  /// no string. Does not sound while a note of its pitch does.
  std::vector<Note> doubtful;
  /// A row of kPitches values for each frame: how strongly each pitch sounds, >= 0, compressed.
  FrameTable activations;
  std::size_t frames = 0;
  /// The amplitude of an activation of 1; 0 for a silent recording.
  double ref = 0;
  /// How far the recording's A lies above 440 Hz, in cents: at most 50 from what was expected.
  double tuningOffset = 0;

  /// frame < frames, pitch in [kLowestPitch, kLowestPitch + kPitches).
  float activation(std::size_t frame, int pitch) const {
    return activations.row(frame)[static_cast<std::size_t>(pitch - kLowestPitch)];
  }
  /// The linear amplitude of an activation, undoing the compression.
  double amplitude(double activation) const { return amplitude(activation, ref); }
  static double amplitude(double activation, double ref) { return std::pow(activation, 2.5) * ref; }
};

}  // namespace korvel::precise
