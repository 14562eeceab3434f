// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <vector>

#include "tab/layout/TabLayout.h"
#include "tab/page/StaffGrips.h"
#include "ui/views/Shades.h"

class QPainter;
class QPaintDevice;

namespace korvel::ui {

/// Draws the rows of a tablature into cells of one size, on the screen or on paper: strings, bars
/// and stems as lines, everything else as the text that it is. Of a song on beats `drawSigns` draws
/// the rhythm, and the rows that stand for it are left out.
class TabCanvas {
 public:
  /// Columns of a fret's number.
  static constexpr int kFretColumns = 2;
  /// Rows of a layout's room for grips.
  static constexpr int kRowsOfGrips = 4;

  /// The font has to be monospaced; the device says how large its points are.
  TabCanvas(const QFont& font, const Shades& shades, const QPaintDevice* device = nullptr);

  QSizeF cell() const { return m_cell; }
  /// Cells of a text whose top left corner is at the origin.
  QRectF cells(int x, int y, int columns, int rows) const;
  /// Of a chord that stands there: its name, its strings and its note values.
  QRectF chordCells(const TabLayout::Place& place) const;
  int columnAt(double x) const;
  int rowAt(double y) const;

  /// Draws a row where it stands in the text, but with other words, such as the layout's own.
  void drawRow(QPainter& painter, const TabLayout& layout, int row, const QString& words) const;
  /// The signs of rhythm in the rows [first, end) and at their edges.
  void drawSigns(QPainter& painter, const TabLayout& layout, int first, int end) const;
  /// Those of a system into the room that the layout has above it, each above its chord and as
  /// large as the next one leaves it.
  void drawGrips(QPainter& painter, const TabLayout& layout, const TabLayout::System& system,
                 const std::vector<StaffGrip>& grips, bool leftHanded) const;

 private:
  struct Row;
  void drawLines(QPainter& painter, const Row& row) const;
  void drawWords(QPainter& painter, const Row& row) const;
  QRectF lineOf(const Row& row, int column) const;
  QRectF stringAtBar(const Row& row, int column) const;

  QFont m_font;
  QFont m_bold;
  Shades m_shades;
  QSizeF m_cell;
  double m_ascent;
  double m_pen;  ///< Width of a line.
};

}  // namespace korvel::ui
