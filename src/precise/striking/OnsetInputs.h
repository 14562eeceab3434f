// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "precise/judging/Candidate.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"

namespace korvel::precise {

/// What the network is shown of a frame in which a note may begin: frame by frame around it the
/// level of its pitch, how much its partials rise and turn, the noise of strokes and how much
/// everything rises; and how far the frame lies from where the note was tracked to begin.
class OnsetInputs {
 public:
  /// Frames before and after the tracked onset in which a note may begin.
  static constexpr Frame kReach = 8;
  /// Frames around a frame that are seen.
  static constexpr Frame kAround = 6;
  /// Frames that are seen of a note.
  static constexpr std::size_t kFrames = 2 * (kReach + kAround) + 1;
  static constexpr std::size_t kSeries = 7;
  static constexpr std::size_t kSeen = 2 * kAround + 1;
  static constexpr std::size_t kCount = kSeries * kSeen + 3;
  using Inputs = std::array<float, kCount>;
  /// Each series from kReach + kAround frames before the tracked onset on.
  using Seen = std::array<std::array<float, kFrames>, kSeries>;

  /// What is seen of the recording is read only here. turns: see Steadiness.
  OnsetInputs(const FrameTable& activations, const FrameTable& turns, const Flux& flux,
              const Candidate& note);

  const Seen& seen() const { return m_seen; }
  /// Of a frame at most kReach before or after the tracked onset.
  Inputs of(Frame offset) const;

 private:
  Seen m_seen;
  float m_pitch;
  float m_reattack;
};

}  // namespace korvel::precise
