// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <limits>

#include "precise/Scale.h"
#include "precise/seeing/FrameTable.h"

namespace korvel::precise {

inline float median(float a, float b, float c) {
  const float low = a < b ? a : b;
  const float high = a < b ? b : a;
  const float capped = high < c ? high : c;
  return low > capped ? low : capped;
}

/// Activations without single outliers: medians of three frames, 0 outside the recording.
class Smoothed {
 public:
  /// kPitches a frame; must outlive this.
  explicit Smoothed(const FrameTable& activations) : m_activations(activations) {}

  float operator()(std::size_t pitch, Frame frame) const {
    return median(level(pitch, frame - 1), level(pitch, frame), level(pitch, frame + 1));
  }

  /// The largest of the frames [first, end) that lie in the recording; 0 when none does.
  float highest(std::size_t pitch, Frame first, Frame end) const {
    float found = 0;
    for (Frame t = first; t < end; ++t)
      if (contains(t)) found = std::max(found, (*this)(pitch, t));
    return found;
  }
  float lowest(std::size_t pitch, Frame first, Frame end) const {
    float found = std::numeric_limits<float>::max();
    for (Frame t = first; t < end; ++t)
      if (contains(t)) found = std::min(found, (*this)(pitch, t));
    return found;
  }

 private:
  bool contains(Frame frame) const {
    return frame >= 0 && frame < static_cast<Frame>(m_activations.frames());
  }
  float level(std::size_t pitch, Frame frame) const {
    return contains(frame) ? m_activations.row(static_cast<std::size_t>(frame))[pitch] : 0;
  }

  const FrameTable& m_activations;
};

}  // namespace korvel::precise
