// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "chords/voices/ToneFrame.h"

namespace korvel::chords {

inline constexpr std::size_t kClasses = 12;

/// One value for each pitch class, C first.
using Chroma = std::array<float, kClasses>;

/// What sounds at a moment: how strongly each pitch class does, compressed so that loud tones count
/// hardly more than soft ones.
struct SoundFrame {
  Chroma treble{};
  Chroma bass{};
  float level = 0;       ///< The power of what sounds, drums too.
  float percussive = 0;  ///< Which share of it is drums, 0..1.
  float low = 0;         ///< Which share of it lies below 77 Hz, 0..1.
};

/// Something is struck: a drum, or any sound that begins suddenly.
struct Stroke {
  double time = 0;  ///< Seconds.
  /// How much the sound rises, 1 for a strong rise of this recording: all of it, and its part below
  /// 150 Hz.
  float strength = 0;
  float low = 0;
};

/// What the chords of a recording are heard from, without its sound.
struct BandSound {
  /// Frame t is centred at t * frameSeconds.
  std::vector<SoundFrame> frames;
  std::vector<ToneFrame> tones;  ///< Of each frame, where single voices are listened for.
  double frameSeconds = 0;
  std::vector<Stroke> strokes;  ///< By time.
  double tuningOffset = 0;      ///< How far its A lies above 440 Hz, in cents, -50..50.
};

}  // namespace korvel::chords
