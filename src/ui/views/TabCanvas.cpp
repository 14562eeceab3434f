// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TabCanvas.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "music/Neck.h"
#include "ui/views/RhythmPainter.h"
#include "ui/views/grips/GripPicture.h"

namespace korvel::ui {
namespace {

constexpr int kNoteValueRows = 3;
constexpr int kTitleRow = 1;
constexpr int kLastRowOfSigns = kStrings + kNoteValueRows + 1;
/// Before the first chord of a system.
constexpr int kLabelColumns = 8;

enum class Kind { plain, heading, title, names, string, noteValue, ruler };

Kind kindOf(const TabLayout& layout, int row) {
  if (layout.systems().empty()) return Kind::plain;
  const TabLayout::System* system = layout.systemAt(row);
  if (!system) return row == kTitleRow ? Kind::title : Kind::heading;
  const int below = row - system->top;
  if (below < 0) return Kind::names;
  if (below < kStrings) return Kind::string;
  return below < kStrings + kNoteValueRows ? Kind::noteValue : Kind::ruler;
}

/// Whether signs are drawn in the place of a row.
bool isOfSigns(const TabLayout& layout, int row) {
  const TabSigns& signs = layout.signs();
  if (signs.isEmpty()) return false;
  if (signs.tempo && signs.tempo->row == row) return true;
  const TabLayout::System* system = layout.systemAt(row);
  const int below = system ? row - system->top : -1;
  return below >= kStrings && below <= kLastRowOfSigns;
}

bool isDrawnAsLines(Kind kind) { return kind == Kind::string || kind == Kind::noteValue; }

bool isLine(QChar c) { return c == u'-' || c == u'|'; }

}  // namespace

struct TabCanvas::Row {
  int number;
  int belowTop;
  Kind kind;
  const QString& words;
  bool isOnBeats;

  bool isLine(int column) const { return isDrawnAsLines(kind) && ui::isLine(words[column]); }
};

TabCanvas::TabCanvas(const QFont& font, const Shades& shades, const QPaintDevice* device)
    : m_font(font), m_bold(font), m_shades(shades) {
  m_bold.setBold(true);
  const QFontMetricsF metrics = device ? QFontMetricsF(font, device) : QFontMetricsF(font);
  const QString sample(64, u'0');
  m_cell = {metrics.horizontalAdvance(sample) / static_cast<double>(sample.size()),
            std::ceil(metrics.height())};
  m_ascent = metrics.ascent();
  m_pen = std::max(1.0, std::round(m_cell.height() / 16));
}

QRectF TabCanvas::cells(int x, int y, int columns, int rows) const {
  return {x * m_cell.width(), y * m_cell.height(), columns * m_cell.width(),
          rows * m_cell.height()};
}

QRectF TabCanvas::chordCells(const TabLayout::Place& place) const {
  return cells(place.x, place.y - 1, place.columns, 1 + kStrings + kNoteValueRows);
}

int TabCanvas::columnAt(double x) const { return static_cast<int>(std::floor(x / m_cell.width())); }

int TabCanvas::rowAt(double y) const { return static_cast<int>(std::floor(y / m_cell.height())); }

void TabCanvas::drawRow(QPainter& painter, const TabLayout& layout, int row,
                        const QString& words) const {
  if (isOfSigns(layout, row)) return;
  const TabLayout::System* system = layout.systemAt(row);
  const Row described{row, system ? row - system->top : -1, kindOf(layout, row), words,
                      !layout.signs().isEmpty()};
  drawLines(painter, described);
  drawWords(painter, described);
}

void TabCanvas::drawSigns(QPainter& painter, const TabLayout& layout, int first, int end) const {
  const TabSigns& signs = layout.signs();
  const RhythmPainter rhythm(m_font, m_shades, m_cell, m_pen);
  if (signs.tempo && signs.tempo->row >= first && signs.tempo->row < end)
    rhythm.drawTempo(painter, *signs.tempo);
  for (std::size_t i = 0; i < signs.systems.size() && i < layout.systems().size(); ++i) {
    const TabLayout::System& system = layout.systems()[i];
    if (system.first < end && system.end >= first)
      rhythm.drawSystem(painter, signs.systems[i], system.top);
  }
}

void TabCanvas::drawGrips(QPainter& painter, const TabLayout& layout,
                          const TabLayout::System& system, const std::vector<StaffGrip>& grips,
                          bool leftHanded) const {
  const int rows = layout.room();
  if (rows == 0) return;
  constexpr double kShape = double(GripPicture::kSize.width()) / GripPicture::kSize.height();
  double right = cells(layout.columns(), 0, 0, 0).left();
  painter.setPen(m_shades.text);
  for (auto grip = grips.rbegin(); grip != grips.rend(); ++grip) {
    const TabLayout::Place* place = layout.placeOf(grip->chord);
    if (!place || place->y != system.top) continue;
    const QRectF room = cells(place->x, system.first - rows, 1, rows);
    const double width = std::min(room.height() * kShape, right - room.left());
    right = room.left();
    // A smaller one could not be read.
    if (width < room.height() * kShape / 2) continue;
    const double height = width / kShape;
    GripPicture(grip->shape, leftHanded)
        .paint(painter, QRectF(room.left(), room.bottom() - height, width, height));
  }
}

/// A bar ends at the outer strings; a stem fills its cell.
QRectF TabCanvas::lineOf(const Row& row, int column) const {
  const QRectF cell = cells(column, row.number, 1, 1);
  const double middle = std::round(cell.center().y() - m_pen / 2);
  if (row.words[column] == u'-') {
    const double inset = row.kind == Kind::noteValue ? cell.width() / 8 : 0;
    return {cell.left() + inset, middle, cell.width() - 2 * inset, m_pen};
  }
  const bool isBar = row.kind == Kind::string;
  const double top = isBar && row.belowTop == 0 ? middle : cell.top();
  const double bottom = isBar && row.belowTop == kStrings - 1 ? middle + m_pen : cell.bottom();
  return {std::round(cell.center().x() - m_pen / 2), top, m_pen, bottom - top};
}

void TabCanvas::drawLines(QPainter& painter, const Row& row) const {
  for (int column = 0; column < row.words.size(); ++column) {
    if (!row.isLine(column)) continue;
    QRectF line = lineOf(row, column);
    // Strings are drawn in one piece, so that no seams show between their cells.
    if (row.kind == Kind::string && row.words[column] == u'-')
      while (column + 1 < row.words.size() && row.words[column + 1] == u'-')
        line.setRight(lineOf(row, ++column).right());
    painter.fillRect(line, m_shades.line);
    if (row.isOnBeats && row.kind == Kind::string && row.words[column] == u'|')
      painter.fillRect(stringAtBar(row, column), m_shades.line);
  }
}

/// A bar line of a song on beats stands between bars, which the strings go through.
QRectF TabCanvas::stringAtBar(const Row& row, int column) const {
  const auto isString = [&](int x) {
    return x >= 0 && x < row.words.size() && row.words[x] == u'-';
  };
  const QRectF cell = cells(column, row.number, 1, 1);
  const double left = isString(column - 1) ? cell.left() : cell.center().x();
  const double right = isString(column + 1) ? cell.right() : cell.center().x();
  return {left, std::round(cell.center().y() - m_pen / 2), right - left, m_pen};
}

// Word by word, so that a character of another width, from another font, moves only its own word.
void TabCanvas::drawWords(QPainter& painter, const Row& row) const {
  const auto isWord = [&](int column) { return row.words[column] != u' ' && !row.isLine(column); };
  const double baseline = row.number * m_cell.height() + m_ascent;
  for (int column = 0; column < row.words.size(); ++column) {
    if (!isWord(column)) continue;
    const int first = column;
    while (column + 1 < row.words.size() && isWord(column + 1)) ++column;
    const QString word = row.words.mid(first, column + 1 - first);
    const bool isNumber = row.kind == Kind::names && first < kLabelColumns;
    const bool faint = row.kind == Kind::heading || row.kind == Kind::ruler ||
                       row.kind == Kind::noteValue || isNumber || word.startsWith(u'(');
    painter.setPen(faint ? m_shades.faintText : m_shades.text);
    painter.setFont(faint || row.kind == Kind::plain ? m_font : m_bold);
    painter.drawText(QPointF(first * m_cell.width(), baseline), word);
  }
}

}  // namespace korvel::ui
