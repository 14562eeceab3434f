// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>

#include "tab/layout/TabSigns.h"
#include "ui/views/Shades.h"

class QPainter;
class QPainterPath;

namespace korvel::ui {

/// Draws the signs of rhythm of a tablature on beats: stems, beams and rests below the strings,
/// below these the stems of a second voice, ties and held tones on them, time signatures across
/// them.
class RhythmPainter {
 public:
  /// The cell and the width of lines are those of the canvas that draws the text.
  RhythmPainter(const QFont& font, const Shades& shades, const QSizeF& cell, double pen)
      : m_font(font), m_shades(shades), m_cell(cell), m_pen(pen) {}

  /// top: row of the top string.
  void drawSystem(QPainter& painter, const TabSigns::System& signs, int top) const;
  void drawTempo(QPainter& painter, const TabSigns::Tempo& tempo) const;

 private:
  using Note = TabSigns::Note;
  using Notes = std::vector<Note>;

  /// In columns and rows of the text.
  QPointF at(double x, double y) const;
  QPointF stem(const Note& note, int top, double row) const;
  void drawNote(QPainter& painter, const Note& note, int top) const;
  void drawLower(QPainter& painter, const Note& note, int top) const;
  void drawDot(QPainter& painter, const QPointF& center) const;
  void drawHead(QPainter& painter, const QPointF& center, bool isHollow) const;
  /// end: row of the stem's end.
  void drawFlags(QPainter& painter, const Note& note, int top, double end) const;
  void drawRest(QPainter& painter, const Note& note, int top) const;
  void drawLongRest(QPainter& painter, const QPointF& center, bool hangs) const;
  void drawShortRest(QPainter& painter, const QPointF& center, int flags) const;
  void drawBeams(QPainter& painter, const Notes& notes, int top) const;
  void drawStub(QPainter& painter, const Note& note, int level, bool toRight, int top) const;
  void drawBeam(QPainter& painter, double from, double to, int level, int top) const;
  void drawTriplets(QPainter& painter, const Notes& notes, int top) const;
  void drawTriplet(QPainter& painter, const Note& first, const Note& last, bool hasBracket,
                   int top) const;
  void drawTie(QPainter& painter, const TabSigns::Line& tie, int top) const;
  void drawRing(QPainter& painter, const TabSigns::Line& ring, int top) const;
  void drawTime(QPainter& painter, const TabSigns::Time& time, int top) const;
  void stroke(QPainter& painter, double width) const;
  void fill(QPainter& painter) const;
  QFont scaled(double factor) const;

  QFont m_font;
  Shades m_shades;
  QSizeF m_cell;
  double m_pen;
};

}  // namespace korvel::ui
