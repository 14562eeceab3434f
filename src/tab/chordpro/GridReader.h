// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

class ReadBars;
class ReadNames;

/// Reads the lines of grids, such as "|: Am . F . | % :| x3": bar lines with repeats, between them
/// cells of equal length, and in the margin behind them how often a repeat is played.
class GridReader {
 public:
  /// Bars come to the end of these; both outlive this.
  GridReader(ReadNames& names, ReadBars& bars) : m_names(names), m_bars(bars) {}

  /// A repeat without a beginning goes back to here.
  void begin();
  /// count: cells of a beat; 0 when the cells of each bar fill it, whatever their number.
  void setCellsOfBeat(int count) { m_cellsOfBeat = count; }
  void line(std::string_view text);

 private:
  void bar(const std::vector<std::string>& cells);
  std::vector<PageSource::Chord> chordsOf(const std::vector<std::string>& cells, int ticks);
  std::vector<PageSource::Chord> chordsOf(const std::string& cell);
  void repeat(int times);

  ReadNames& m_names;
  ReadBars& m_bars;
  int m_cellsOfBeat = 0;
  std::size_t m_repeatFrom = 0;
};

}  // namespace korvel
