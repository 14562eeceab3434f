// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "chords/seeing/LogScale.h"

namespace korvel::chords {

/// Takes drums out of spectra: what is long in time stays, what is broad in pitch goes. Medians
/// tell the two apart: D. FitzGerald, "Harmonic/percussive separation using median filtering"
/// (2010). Rows come out kDelay calls after they went in.
class DrumFilter {
 public:
  static constexpr std::size_t kDelay = 7;

  struct Row {
    LogRow tones{};
    float level = 0;       ///< The sum of the squares of what went in.
    float percussive = 0;  ///< Which share of that is broad, 0..1.
  };

  /// The next row. After kDelay rows the answer is the one that came so many calls ago.
  void add(const LogRow& row);
  /// Of the row in the middle of the last ones.
  void middle(Row& result) const;

 private:
  static constexpr std::size_t kLong = 2 * kDelay + 1;  ///< Frames.

  std::array<LogRow, kLong> m_recent{};
  std::size_t m_next = 0;
};

}  // namespace korvel::chords
