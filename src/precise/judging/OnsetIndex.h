// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "precise/judging/Candidate.h"

namespace korvel::precise {

/// Answers which candidates start near a frame.
class OnsetIndex {
 public:
  /// Starts that are at most so many frames apart are near each other.
  static constexpr Frame kNear = 4;

  explicit OnsetIndex(std::span<const Candidate> candidates);

  /// Candidates of any pitch that start near the frame, and those of them that are no re-attacks.
  std::size_t count(Frame frame) const { return countNear(m_onsets, frame); }
  std::size_t countNew(Frame frame) const { return countNear(m_newOnsets, frame); }
  /// Whether one that starts near the frame has an overtone at the pitch.
  bool isCovered(std::size_t pitch, Frame frame) const;
  /// The same for those that are no re-attacks.
  bool isCoveredByNew(std::size_t pitch, Frame frame) const;

 private:
  /// Frames in rising order.
  using Onsets = std::vector<Frame>;

  static std::size_t countNear(const Onsets& onsets, Frame frame);
  static bool covers(const std::vector<Onsets>& byPitch, std::size_t pitch, Frame frame);

  Onsets m_onsets;
  Onsets m_newOnsets;
  std::vector<Onsets> m_byPitch;
  std::vector<Onsets> m_newByPitch;
};

}  // namespace korvel::precise
