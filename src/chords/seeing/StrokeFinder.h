// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "chords/BandSound.h"
#include "platform/numerics/FourierTransform.h"

namespace korvel::chords {

/// Finds when something is struck, whatever it is: moments at which the spectrum rises.
class StrokeFinder {
 public:
  StrokeFinder();
  /// The next samples at kRate.
  void add(std::span<const float> samples);
  /// All strokes, by time. To be called once, at the end.
  std::vector<Stroke> take();

 private:
  static constexpr std::size_t kWindow = 512;
  static constexpr std::size_t kStep = 128;
  static constexpr std::size_t kLines = kWindow / 2;
  using Lines = std::array<float, kLines>;

  /// How much the spectrum rises from one frame to the next.
  struct Rise {
    float all = 0;
    float low = 0;
  };

  void look();
  void compare(const Lines& lines);

  std::vector<float> m_window;
  std::vector<float> m_waiting;
  platform::SingleComplexTransform m_transform;
  std::array<Lines, 2> m_before{};
  std::vector<Rise> m_rises;
};

}  // namespace korvel::chords
