// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "chords/seeing/LogScale.h"

namespace korvel::chords {

/// Tones from this MIDI number on.
inline constexpr int kLowestTone = 28;
inline constexpr std::size_t kTones = 69;
/// How strongly each of them sounds, >= 0.
using Tones = std::array<float, kTones>;

/// Explains whitened spectra as sums of tones with their partials, so that the partials of low
/// tones do not pass for tones of their own: non-negative least squares by multiplicative updates.
class ToneSolver {
 public:
  ToneSolver();
  void solve(const LogRow& row, Tones& tones) const;

 private:
  /// Of a tone's spectrum, from its fundamental on.
  struct Spectrum {
    std::size_t from = 0;
    std::vector<float> values;
  };

  std::vector<Spectrum> m_spectra;
  std::vector<Tones> m_products;  ///< Of each pair of spectra.
};

}  // namespace korvel::chords
