// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablaturePainter.h"

#include <QPainter>
#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/Neck.h"
#include "tab/text/TabText.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {

TablaturePainter::TablaturePainter(const TabCanvas& canvas, const Shades& shades,
                                   const Shown& shown)
    : m_canvas(canvas), m_shades(shades), m_shown(shown) {}

void TablaturePainter::paint(QPainter& painter, const QRectF& wanted) const {
  const int rows = static_cast<int>(m_shown.layout.rows().size());
  const int first = std::clamp(m_canvas.rowAt(wanted.top()), 0, rows);
  const int end = std::clamp(m_canvas.rowAt(wanted.bottom()) + 1, 0, rows);
  const auto isVisible = [&](const TabLayout::System& system) {
    return system.first - m_shown.layout.room() < end && system.end >= first;
  };
  for (const auto& system : m_shown.layout.systems())
    if (isVisible(system)) paintGround(painter, system);
  for (int row = first; row < end; ++row)
    m_canvas.drawRow(painter, m_shown.layout, row, words(row));
  m_canvas.drawSigns(painter, m_shown.layout, first, end);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& system : m_shown.layout.systems())
    if (isVisible(system)) paintMarks(painter, system);
  for (const auto& system : m_shown.layout.systems())
    if (isVisible(system))
      m_canvas.drawGrips(painter, m_shown.layout, system, m_shown.grips, m_shown.leftHanded);
}

QString TablaturePainter::words(int row) const {
  QString text = toText(m_shown.layout.rows()[static_cast<std::size_t>(row)]);
  const TabLayout::System* system = m_shown.layout.systemAt(row);
  if (m_shown.song && system && stringAt(*system, row)) addInactiveTones(text, *system, row);
  return text;
}

/// The text leaves silenced tones out; here they show in parentheses where a string has no other.
void TablaturePainter::addInactiveTones(QString& words, const TabLayout::System& system,
                                        int row) const {
  const auto& chords = m_shown.song->allChords();
  const int string = *stringAt(system, row);
  for (auto place = m_shown.layout.begin(system); place != m_shown.layout.end(system); ++place) {
    if (place->chord >= static_cast<int>(chords.size())) continue;
    const QBHold* hold = chords[static_cast<std::size_t>(place->chord)]->hold();
    if (!hold || QStringView(words).mid(place->x, TabCanvas::kFretColumns) != u"--") continue;
    for (const auto& tone : hold->allTonesOfString(string)) {
      if (tone->isActive()) continue;
      const QString text = QString("(%1)").arg(tone->fret());
      if (place->x + text.size() <= words.size()) words.replace(place->x, text.size(), text);
    }
  }
}

void TablaturePainter::paintRuler(QPainter& painter, const TabLayout::System& system) const {
  const auto first = m_shown.layout.begin(system);
  const auto end = m_shown.layout.end(system);
  if (first == end) return;
  const int columns = std::prev(end)->x + std::prev(end)->columns - first->x;
  painter.fillRect(m_canvas.cells(first->x, system.first, columns, 1), m_shades.ruler);
}

void TablaturePainter::paintGround(QPainter& painter, const TabLayout::System& system) const {
  paintRuler(painter, system);
  for (auto place = m_shown.layout.begin(system); place != m_shown.layout.end(system); ++place) {
    const QRectF cells = m_canvas.chordCells(*place);
    if (m_shown.loop.contains(place->chord)) painter.fillRect(cells, m_shades.loop);
    if (m_shown.doubts.contains(place->chord)) painter.fillRect(cells, m_shades.doubt);
    if (!m_shown.selection.contains(place->chord)) continue;
    const double edge = std::max(1.0, m_canvas.cell().width() / 5);
    painter.fillRect(cells, m_shades.chosen);
    painter.fillRect(QRectF(cells.left(), cells.top(), cells.width(), edge), m_shades.mark);
    painter.fillRect(QRectF(cells.left(), cells.bottom() - edge, cells.width(), edge),
                     m_shades.mark);
  }
}

void TablaturePainter::paintMarks(QPainter& painter, const TabLayout::System& system) const {
  const auto isHere = [&](const auto& place) { return place && place->y == system.top; };
  const auto from = m_shown.layout.nearPlace(m_shown.loop.first);
  const auto to = m_shown.layout.nearPlace(m_shown.loop.last);
  const auto playing = m_shown.layout.nearPlace(m_shown.playing);
  for (auto place = m_shown.layout.begin(system); place != m_shown.layout.end(system); ++place)
    if (const auto mark = m_shown.doubts.find(place->chord); mark != m_shown.doubts.end())
      paintDoubt(painter, system, *place, mark->second);
  if (isHere(from)) paintBracket(painter, *from, true);
  if (isHere(to)) paintBracket(painter, *to, false);
  if (isHere(playing)) paintPlaying(painter, *playing);
}

/// A dotted line under each fret, and a question mark in the row of names, behind the chord's own.
void TablaturePainter::paintDoubt(QPainter& painter, const TabLayout::System& system,
                                  const TabLayout::Place& place, const DoubtMark& mark) const {
  const double pen = std::max(1.0, m_canvas.cell().width() / 7);
  painter.setPen(QPen(m_shades.text, pen, Qt::DotLine));
  for (int string = 0; string < kStrings; ++string) {
    if (!(mark.strings & 1U << string)) continue;
    const QRectF cells =
        m_canvas.cells(place.x, rowOfString(place.y, string), TabCanvas::kFretColumns, 1);
    painter.drawLine(cells.bottomLeft(), cells.bottomRight());
  }
  if (mark.words.isEmpty()) return;
  const QString names = toText(m_shown.layout.rows()[static_cast<std::size_t>(system.first)]);
  int column = place.x;
  while (column < names.size() && !names[column].isSpace()) ++column;
  painter.drawText(m_canvas.cells(column, system.first, 1, 1), Qt::AlignCenter,
                   QStringLiteral("?"));
}

void TablaturePainter::paintPlaying(QPainter& painter, const TabLayout::Place& place) const {
  const double pen = std::max(2.0, m_canvas.cell().width() / 4);
  painter.setPen(QPen(m_shades.mark, pen));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(m_canvas.chordCells(place).adjusted(-pen / 2, pen / 2, -pen, -pen / 2),
                          2 * pen, 2 * pen);
}

void TablaturePainter::paintBracket(QPainter& painter, const TabLayout::Place& place,
                                    bool opening) const {
  const QRectF cells = m_canvas.chordCells(place);
  const double pen = std::max(2.0, m_canvas.cell().width() / 3);
  const double x = opening ? cells.left() - pen / 2 : cells.right() - pen / 2;
  const double inner = x + (opening ? 1 : -1) * m_canvas.cell().width() * 0.8;
  painter.setPen(QPen(m_shades.text, pen, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.drawPolyline(QPolygonF{
      {inner, cells.top()}, {x, cells.top()}, {x, cells.bottom()}, {inner, cells.bottom()}});
}

// ---- the cursor

void TablaturePainter::frameCursor(QPainter& painter, const QRectF& cells) const {
  painter.setPen(QPen(m_shades.faintText, 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(cells.adjusted(0.5, 0.5, -0.5, -0.5));
}

void TablaturePainter::fillCursor(QPainter& painter, const QRectF& cells, const QFont& font) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(cells, m_shades.accent);
  painter.setClipRect(cells);
  Shades onAccent = m_shades;
  onAccent.text = onAccent.faintText = onAccent.line = m_shades.onAccent;
  const int row = m_canvas.rowAt(cells.center().y());
  TabCanvas(font, onAccent).drawRow(painter, m_shown.layout, row, words(row));
  painter.setClipping(false);
}

}  // namespace korvel::ui
