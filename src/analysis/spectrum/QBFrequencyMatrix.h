// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>

#include "matrix/QBFloatMatrix.h"

namespace korvel {

class QBTuning;

/// Finds the place on the neck that plays a frequency.
class QBFrequencyMatrix : public QBFloatMatrix {
 public:
  using QBFloatMatrix::QBFloatMatrix;

  /// The place of a frequency in Hz in a tuning, as a position matrix of one row; none when no fret
  /// that is searched is within 7.5 % of a semitone, or without a tuning. In standard tuning and in
  /// drop D these are the first position and the whole highest string, in any other the frets of
  /// each string up to the note of the next one.
  static std::optional<QBFloatMatrix> infoByFrequencyComputed(float f, QBTuning* tuning);

  /// Other tables of bins than the mapper's; no step of the analysis reads them.
  /// Bins 7 to 135 by their own frequencies, 0 where no place plays it: 129 entries.
  static std::span<const float> buildSpektrum(QBTuning* tuning);
  /// Bins 30 to 252 with the tones E2 to E5: 223 entries.
  static std::span<const float> buildSpectrumBig();
  /// As QBFrequencyMapper::bigD.
  static std::span<const float> buildSpectrumSmall();
  static QBFrequencyMatrix initAsGuitar() { return {}; }
};

}  // namespace korvel
