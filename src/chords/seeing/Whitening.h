// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "chords/seeing/LogScale.h"

namespace korvel::chords {

/// Makes peaks of a spectrum as high in treble as in bass: how many deviations each bin lies above
/// the mean of those around it, 0 for one that does not.
class Whitening {
 public:
  Whitening();
  void apply(LogRow& row) const;

 private:
  static constexpr std::size_t kSide = 18;

  std::vector<float> m_weights;  ///< By distance.
  LogRow m_scale{};              ///< One over the sum of the weights at each bin.
};

}  // namespace korvel::chords
