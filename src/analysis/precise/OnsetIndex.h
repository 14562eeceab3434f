// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/precise/Candidate.h"

namespace korvel::precise {

/// Answers which candidates start near a frame.
class OnsetIndex {
 public:
  /// Starts within so many frames are together.
  static constexpr Frame kNear = 4;

  explicit OnsetIndex(std::span<const Candidate> candidates);

  /// Candidates of any pitch that start near the frame, and those of them that are no re-attacks.
  std::size_t count(Frame frame) const;
  std::size_t countNew(Frame frame) const;
  /// Whether one of that pitch starts near the frame.
  bool contains(std::size_t pitch, Frame frame) const;

 private:
  static std::size_t countNear(const std::vector<Frame>& onsets, Frame frame);

  /// In order.
  std::vector<Frame> m_onsets;
  std::vector<Frame> m_newOnsets;
  std::vector<std::vector<Frame>> m_byPitch;
};

}  // namespace korvel::precise
