// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "precise/Scale.h"
#include "precise/seeing/FrameTable.h"
#include "precise/seeing/KeptValues.h"

namespace korvel::precise {

/// How much the spectrum rises at each moment, which tells where notes begin. Add the frames in
/// order, settle, then ask.
class Flux {
 public:
  /// What earlier windows of a long recording had.
  struct Earlier {
    KeptValues loudest{};
    KeptValues totals{};
  };

  explicit Flux(std::size_t frames);

  /// The next frame's magnitudes.
  void add(const OnsetRow& magnitudes);
  void settle() {
    Earlier none;
    settle(none);
  }
  /// The same beside the windows before, to which this one is added.
  void settle(Earlier& earlier);

  /// How much the partials of a pitch rise around a frame; 0 outside the recording.
  float of(std::size_t pitch, Frame frame) const;
  /// How much a bin of the onset spectrum rises, and the one that rises most; 0 outside the
  /// recording and the scale.
  float at(std::size_t bin, Frame frame) const;
  float strongest(Frame frame) const;
  /// How much all above 2 kHz rises, where a stroke makes noise; 0 outside the recording.
  float high(Frame frame) const;
  /// How much everything rises, compared with the strong rises of the recording.
  float overall(Frame frame) const;

 private:
  bool contains(Frame frame) const;

  /// Rises of each bin.
  FrameTable m_rises;
  std::vector<float> m_loudest;
  std::vector<float> m_totals;
  /// The last four frames, oldest first.
  std::array<OnsetRow, 4> m_recent{};
  /// Divides rises, so that they do not depend on the recording's level.
  float m_level = 1;
  float m_strongTotal = 1;
};

}  // namespace korvel::precise
