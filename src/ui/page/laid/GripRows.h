// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "tab/page/SongPage.h"
#include "ui/page/laid/LaidPage.h"
#include "ui/page/laid/PageFont.h"

namespace korvel::ui {

/// Lays out the grips of a page in rows. What it is made of outlives it.
class GripRows {
 public:
  /// width: of the page.
  GripRows(const SongPage& page, const PageFont& font, double width)
      : m_page(page), m_font(font), m_width(width) {}

  /// From left to right, as many in a row as fit. Each row is a band.
  void addTo(LaidPage& laid) const;
  /// Large, and a row for each chord: as it is held on the page, and behind it the other ways.
  void addWithOthersTo(LaidPage& laid) const;

 private:
  void addGrip(LaidPage& laid, const QRectF& cell, const ChordShape& frets,
               const QString& name) const;
  double cellWidth(double height) const;

  const SongPage& m_page;
  const PageFont& m_font;
  double m_width;
};

}  // namespace korvel::ui
