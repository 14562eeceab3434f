// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

namespace korvel {

class ReadBars;
class ReadNames;

/// Reads lines of words with chords in brackets where these change, such as "[Am]Over the
/// [F]hills".
class SungReader {
 public:
  /// Bars come to the end of these; both outlive this.
  SungReader(ReadNames& names, ReadBars& bars) : m_names(names), m_bars(bars) {}

  void line(std::string_view text);
  /// How long the next chords are, in beats, such as "4 2 2". Those behind them have a bar each, as
  /// all have while nothing is said.
  void setLengths(std::string_view beats);

 private:
  void addChord(std::string_view name);

  ReadNames& m_names;
  ReadBars& m_bars;
  std::vector<int> m_lengths;  ///< Ticks of the next chords, the last one first.
};

}  // namespace korvel
