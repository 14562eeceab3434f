// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "precise/Scale.h"
#include "precise/seeing/Triangles.h"

namespace korvel::precise {

/// How far the partials of a sound go on as they did: what rings keeps its frequency, so that its
/// phase can be foretold from two frames; a stroke gives it another phase. Show it the frames in
/// order.
class Steadiness {
 public:
  /// bins: the coarse bins of onsets, over lines of a spectrum.
  explicit Steadiness(Triangles bins);

  /// How many lines it looks at.
  std::size_t reach() const { return m_bins.reach(); }

  /// The next frame, as Spectrum::parts answers it, and its magnitudes. Answers how far each bin
  /// differs from what was foretold, 0 to 1, in relation to how much there is.
  void look(std::span<const float> parts, std::span<const float> magnitudes, OnsetRow& turns);

 private:
  struct Past {
    std::vector<float> parts;
    std::vector<float> magnitudes;
  };

  Triangles m_bins;
  /// The last two frames, the older first.
  std::array<Past, 2> m_past;
  std::vector<float> m_missed;
  std::vector<float> m_sums;
  OnsetRow m_missedMeans{};
  OnsetRow m_sumMeans{};
};

}  // namespace korvel::precise
