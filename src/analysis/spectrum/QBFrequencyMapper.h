// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>

namespace korvel {

class QBTuning;

/// Which tone a loud bin of the spectrum stands for. Each tone of the guitar has one bin, found by
/// hand for 44100 Hz; bins between them stand for none. The tables are the same for every tuning.
class QBFrequencyMapper {
 public:
  /// Width in Hz of a bin of the transform, 44100 / 16384.
  static constexpr float kBinWidth = 2.6916504F;
  /// The bin that entry 0 of `smallD` belongs to. Peak picking starts here, not at `smallDOffset`.
  static constexpr std::size_t kSmallDFirstBin = 28;

  /// Tone in Hz of bins 28 to 252, or 0: 225 entries with the tones D2 to E5.
  static std::span<const float> smallD(const QBTuning* tuning);
  /// The same for bins of twice the width, from 15 on: 112 entries with the tones E2 to E5.
  static std::span<const float> bigD(const QBTuning* tuning);
  /// The first bins as front ends show them; for `smallD` it is not the bin that is read.
  static int smallDOffset() { return 30; }
  static int bigDOffset() { return 15; }
};

}  // namespace korvel
