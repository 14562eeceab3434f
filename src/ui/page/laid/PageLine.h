// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstddef>
#include <span>
#include <vector>

#include "tab/page/SongPage.h"
#include "ui/page/laid/ChordRow.h"
#include "ui/page/laid/LaidPage.h"
#include "ui/page/laid/PageFont.h"

namespace korvel::ui {

/// Some bars of a section beside each other, between bar lines, with their words below. What it is
/// made of outlives it.
class PageLine {
 public:
  struct Bars {
    const PageSection& section;
    int index;          ///< Of the section in the page.
    std::size_t first;  ///< Index in the section.
    std::size_t count;
  };

  /// lines: of words below the bars. width: of the page. showsSounding: as in `ChordRow`.
  PageLine(const Bars& bars, int lines, const PageFont& font, double width, bool showsSounding);

  void addTo(LaidPage& laid) const;

  /// "3×", or "" for what is played once.
  static QString timesOf(const PageSection& section);

 private:
  double neededBy(std::size_t bar) const;
  void fitWidths();
  double namesHeight() const;
  double barLineHeight() const;
  double wordsHeight() const;
  bool isBehindRepeat(std::size_t bar) const { return bar == 0 && m_opens; }
  void addBar(LaidPage& laid, std::size_t bar, const QRectF& place) const;
  void addWords(LaidPage& laid, std::size_t bar, LaidPage::Bar& placed) const;
  void addBarLine(LaidPage& laid, double x, bool isHeavy) const;
  void addRepeat(LaidPage& laid, double x, bool opens) const;
  void addTimes(LaidPage& laid, double x) const;

  const PageSection& m_section;
  const PageFont& m_font;
  std::span<const PageBar> m_bars;
  int m_index;
  std::size_t m_first;
  int m_lines;
  bool m_opens;   ///< A repeat.
  bool m_closes;  ///< One.
  double m_pageWidth;
  double m_sounding;  ///< Height of what chords sound like; 0 where that is not shown.
  std::vector<ChordRow> m_rows;
  std::vector<double> m_widths;  ///< Of the bars.
  double m_scale = 1;            ///< Of the letters, where they are too many for the width.
};

}  // namespace korvel::ui
