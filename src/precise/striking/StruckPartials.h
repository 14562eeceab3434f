// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "precise/Scale.h"
#include "precise/judging/Candidate.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/PartialShares.h"

namespace korvel::precise {

/// The partials of a string that is struck, each of which counts by the share that other pitches
/// leave it before and after the stroke.
class StruckPartials {
 public:
  StruckPartials(const FrameTable& activations, const Candidate& candidate);

  /// The mean over a group of partials. valueOf: of a bin of the onset spectrum; bins above the
  /// scale count as 0.
  template <class Value>
  float mean(const PartialGroup& group, const Value& valueOf) const {
    float sum = 0;
    float all = 0;
    for (std::size_t i = group.begin; i < group.end; ++i) {
      const std::size_t bin = m_pitch + 1 + kPartials[i].distance;
      if (bin < kOnsetBins) sum += m_shares[i] * valueOf(bin);
      all += m_shares[i];
    }
    return sum / all;
  }

 private:
  std::size_t m_pitch;
  PartialShares m_shares;
};

}  // namespace korvel::precise
