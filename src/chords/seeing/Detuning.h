// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chords/seeing/LogScale.h"

namespace korvel::chords {

/// How far a recording is out of tune, by the phase that its mean spectrum has within semitones.
class Detuning {
 public:
  void add(const LogRow& row);
  /// Of all rows so far, in cents above 440 Hz for A, -50..50; 0 before the first one.
  double cents() const;

  /// Moves a row to where it stands when it is in tune.
  static void mend(LogRow& row, double cents);

 private:
  double m_cosine = 0;
  double m_sine = 0;
};

}  // namespace korvel::chords
