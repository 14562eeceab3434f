// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "precise/Analysis.h"
#include "precise/Scale.h"
#include "precise/seeing/Window.h"

namespace korvel::precise {

inline Frame frameAt(double seconds) {
  return static_cast<Frame>(std::lround(seconds * kFramesPerSecond));
}

/// How strongly each of some notes sounds while it lasts: what of a recording's activations is
/// needed when the notes are known, and far less.
class NoteCurves {
 public:
  NoteCurves() = default;
  /// Of notes of the recording.
  NoteCurves(const Analysis& analysis, std::span<const Note> notes);
  /// Of notes of which nothing but length and loudness is known any more: each fades as a string
  /// does.
  static NoteCurves fading(std::span<const Note> notes);

  /// Of one more note, heard in a window of the recording that begins with that frame; the note's
  /// times count from there.
  void add(const Analysis& window, const Note& note, Frame begin);
  /// What another window, which begins with that frame, has of the note up to an end further on.
  void extend(std::size_t note, const Analysis& window, int pitch, Frame begin, Frame end);

  /// The largest linear amplitude that the note has in those frames of the recording.
  double amplitude(std::size_t note, const Window& frames) const;

 private:
  struct Curve {
    Frame first = 0;
    double ref = 0;  ///< The amplitude of an activation of 1.
    std::vector<float> activations{};
  };

  std::vector<Curve> m_curves;
};

}  // namespace korvel::precise
