// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>

#include "precise/Scale.h"

namespace korvel::precise {

/// Frames [begin, end), within a recording.
struct Window {
  Frame begin;
  Frame end;
};

/// What of the frames lies in a recording of that length.
inline Window window(Frame begin, Frame end, Frame frames) {
  const Frame first = std::clamp<Frame>(begin, 0, frames);
  return {first, std::clamp(end, first, frames)};
}

/// The largest value at a frame of the window, at least 0.
template <class Value>
double largest(const Window& window, const Value& valueAt) {
  double found = 0;
  for (Frame t = window.begin; t < window.end; ++t)
    found = std::max(found, static_cast<double>(valueAt(t)));
  return found;
}

/// The mean of the values at the frames of the window; 0 when it has no frames.
template <class Value>
double mean(const Window& window, const Value& valueAt) {
  double sum = 0;
  for (Frame t = window.begin; t < window.end; ++t) sum += static_cast<double>(valueAt(t));
  return window.begin == window.end ? 0 : sum / static_cast<double>(window.end - window.begin);
}

}  // namespace korvel::precise
