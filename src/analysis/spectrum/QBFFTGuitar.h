// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/spectrum/QBFFT.h"

namespace korvel {

/// A spectrum that is read for the tones of a guitar.
class QBFFTGuitar : public QBFFT {
 public:
  /// A bin counts as heard from this magnitude on.
  static constexpr double kThreshold = 750000.0;

  using QBFFT::QBFFT;

  std::span<const QBFrequency> frequencies(QBTuning* tuning) override;

  /// The tones of the bins that are loud enough, loudest first, equals in the order of the bins.
  /// Entry i of `tones` is the frequency in Hz that bin firstBin + i stands for, or 0. Their places
  /// are those of the tuning.
  static std::vector<QBFrequency> pickPeaks(std::span<const double> amps, std::size_t firstBin,
                                            std::span<const float> tones, QBTuning* tuning);
};

}  // namespace korvel
