// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "model/book/QBHarmony.h"
#include "music/Pitch.h"
#include "music/Ticks.h"
#include "ui/desktop/Text.h"
#include "ui/roll/SoundBackdrop.h"
#include "ui/roll/TonePainter.h"

namespace korvel::ui {
namespace {

constexpr int kOctaveOfMidiZero = -1;
constexpr double kLabelDistance = 3;  ///< In heights of a line of text.
constexpr double kClosestLines = 5;   ///< In pixels.

bool isNatural(int pitch) {
  const auto note = QBHarmony::noteAsString(pitchClass(pitch));
  return note && note->size() == 1;
}

/// 1, 2, 5, 10, 20, 50, ... the smallest that is so large.
int roundStep(double atLeast) {
  int step = 1;
  for (int i = 0; step < atLeast; ++i) step = i % 3 == 1 ? step / 2 * 5 : step * 2;
  return step;
}

}  // namespace

QString RollPainter::nameOf(int pitch) {
  const auto note = QBHarmony::noteAsString(pitchClass(pitch)).value_or("");
  return toText(note) + QString::number(pitch / kNotesPerOctave + kOctaveOfMidiZero);
}

RollPainter::RollPainter(const ToneRoll& roll, const RollNotes& notes, const RollScale& scale,
                         SoundBackdrop& backdrop, const QPalette& palette, const QFont& font)
    : m_roll(roll),
      m_notes(notes),
      m_scale(scale),
      m_backdrop(backdrop),
      m_shades(palette),
      m_font(font) {}

void RollPainter::paint(QPainter& painter, const QRect& part, const Marks& marks) const {
  painter.fillRect(part, m_shades.base);
  if (m_roll.chords() == 0) return;
  const int first = m_scale.chordAt(part.left());
  const int end = m_scale.chordAt(part.right()) + 1;
  paintLanes(painter);
  m_backdrop.paint(painter, part, m_scale, m_shades);
  paintLoop(painter, marks.loop);
  paintBeats(painter, first, end);
  paintRuler(painter, first, end);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  painter.setClipRect(m_scale.lanes());
  TonePainter(m_roll, m_notes, m_scale, m_shades).paint(painter, first, end, marks.chosen);
  paintGesture(painter, marks);
  painter.restore();
  paintMarks(painter, marks);
  paintPitches(painter);
}

// ---- what stands behind

/// Lanes of the notes with sharps and flats are darker, as on a keyboard.
void RollPainter::paintLanes(QPainter& painter) const {
  const double height = m_scale.laneHeight();
  const QRectF area = m_scale.lanes();
  const QColor dark = mixed(m_shades.base, m_shades.text, 0.04);
  for (int pitch = m_roll.lowestPitch() - kNotesPerOctave;
       pitch <= m_roll.highestPitch() + kNotesPerOctave; ++pitch) {
    const QRectF lane = QRectF(0, m_scale.top(pitch), area.width(), height).intersected(area);
    if (lane.isEmpty()) continue;
    if (!isNatural(pitch)) painter.fillRect(lane, dark);
    if (pitchClass(pitch) == 0)
      painter.fillRect(QRectF(0, lane.bottom() - 1, area.width(), 1), m_shades.grid);
  }
}

void RollPainter::paintLoop(QPainter& painter, const ChordSpan& loop) const {
  const double begin = m_scale.x(loop.first);
  const double end = m_scale.x(loop.last + 1);
  if (loop.first >= 0 && loop.last >= 0) {
    QRectF ground = m_scale.lanes();
    ground.setLeft(begin);
    ground.setRight(end);
    QColor shade = m_shades.accent;
    shade.setAlphaF(0.14F);
    painter.fillRect(ground, shade);
  }
  if (loop.first >= 0) paintBracket(painter, begin, m_scale.line() * 0.4);
  if (loop.last >= 0) paintBracket(painter, end, -m_scale.line() * 0.4);
}

void RollPainter::paintBracket(QPainter& painter, double x, double inner) const {
  const double pen = std::max(2.0, m_scale.line() / 8);
  const QRectF area = m_scale.lanes();
  painter.setPen(QPen(m_shades.text, pen, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  const double top = area.top() + pen / 2;
  const double bottom = area.bottom() - pen / 2;
  painter.drawPolyline(QPolygonF{{x + inner, top}, {x, top}, {x, bottom}, {x + inner, bottom}});
}

// ---- ruler

double RollPainter::roomOfLabel() const { return kLabelDistance * m_scale.line(); }

/// Numbers of bars, or of chords where there are none, at a distance that leaves them room.
void RollPainter::paintRuler(QPainter& painter, int first, int end) const {
  painter.setFont(m_font);
  painter.setPen(m_shades.faintText);
  if (m_roll.bars().empty())
    paintNumbers(painter, first, end);
  else
    paintBars(painter, first, end);
}

void RollPainter::paintNumbers(QPainter& painter, int first, int end) const {
  const double room = roomOfLabel();
  const int margin = static_cast<int>(room / m_scale.step()) + 1;
  const int step = roundStep(room / m_scale.step());
  for (int number = (first - margin) / step * step; number <= end; number += step)
    if (number > 0) paintTick(painter, number - 1, number);
}

void RollPainter::paintBars(QPainter& painter, int first, int end) const {
  const double room = roomOfLabel();
  const int margin = static_cast<int>(room / m_scale.step()) + 1;
  const auto& bars = m_roll.bars();
  double free = -room;
  double line = free;  ///< The latest one.
  for (auto bar = std::ranges::lower_bound(bars, first - margin * 2); bar != bars.end(); ++bar) {
    if (*bar > end) break;
    const int number = static_cast<int>(bar - bars.begin()) + m_roll.numberOfFirstBar();
    const bool hasRoom = m_scale.x(*bar) >= free;
    if (!hasRoom && m_scale.x(*bar) - line < kClosestLines) continue;
    line = m_scale.x(*bar);
    paintTick(painter, *bar, hasRoom ? number : 0);
    if (hasRoom) free = m_scale.x(*bar) + room / 2;
  }
}

/// number: 0 for none.
void RollPainter::paintTick(QPainter& painter, int chord, int number) const {
  const double x = m_scale.x(chord);
  const QRectF lanes = m_scale.lanes();
  painter.fillRect(QRectF(std::round(x), lanes.top(), 1, lanes.height()), m_shades.grid);
  if (number > 0)
    painter.drawText(QRectF(x + 2, 0, roomOfLabel(), m_scale.rulerHeight()),
                     Qt::AlignLeft | Qt::AlignVCenter, QString::number(number));
}

/// Fainter than the bars.
void RollPainter::paintBeats(QPainter& painter, int first, int end) const {
  if (m_scale.width(kTicksOfBeat) < kClosestLines) return;
  const auto& beats = m_roll.beats();
  const QRectF lanes = m_scale.lanes();
  const QColor faint = mixed(m_shades.base, m_shades.grid, 0.6);
  for (auto beat = std::ranges::lower_bound(beats, m_roll.begin(first));
       beat != beats.end() && *beat <= m_roll.begin(end); ++beat)
    painter.fillRect(QRectF(std::round(m_scale.xOfStep(*beat)), lanes.top(), 1, lanes.height()),
                     faint);
}

// ---- marks

void RollPainter::paintMarks(QPainter& painter, const Marks& marks) const {
  const double width = std::max(1.5, m_scale.line() / (marks.focused ? 6 : 10));
  const Qt::PenStyle ofCursor = marks.focused ? Qt::DashLine : Qt::DotLine;
  if (marks.playing >= 0)
    paintColumn(painter, m_shades.mark, QPen(m_shades.mark, width), marks.playing);
  if (marks.cursor >= 0)
    paintColumn(painter, m_shades.text, QPen(m_shades.text, width, ofCursor), marks.cursor);
  if (marks.dragged)
    painter.fillRect(QRectF(*marks.dragged, 0, 2, m_scale.height()), m_shades.mark);
}

void RollPainter::paintGesture(QPainter& painter, const Marks& marks) const {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(m_shades.text, 1.5, Qt::DashLine));
  painter.drawRects(marks.drawn.data(), static_cast<int>(marks.drawn.size()));
  if (!marks.spot.isEmpty()) painter.drawRect(marks.spot.adjusted(-3, -3, 3, 3));
  if (marks.band.isEmpty()) return;
  QColor shade = m_shades.accent;
  shade.setAlphaF(0.2F);
  painter.setPen(m_shades.accent);
  painter.setBrush(shade);
  painter.drawRect(marks.band);
}

/// A frame, with a flag in the ruler that shows over tones of any shade.
void RollPainter::paintColumn(QPainter& painter, const QColor& ink, const QPen& frame,
                              int chord) const {
  const QRectF lanes = m_scale.lanes();
  const QRectF column(m_scale.x(chord), lanes.top(), m_scale.columnWidth(chord), lanes.height());
  painter.setPen(frame);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(column.adjusted(0, 0, 0, -frame.widthF() / 2));
  const double half = m_scale.line() * 0.3;
  const QPointF tip(column.center().x(), column.top());
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(
      QPolygonF{tip, tip + QPointF(-half, -1.5 * half), tip + QPointF(half, -1.5 * half)});
}

void RollPainter::paintPitches(QPainter& painter) const {
  const double names = m_scale.names();
  const double line = m_scale.line();
  const QRectF lanes = m_scale.lanes();
  painter.fillRect(QRectF(0, 0, names, m_scale.height()), m_shades.base);
  painter.fillRect(QRectF(names - 1, lanes.top(), 1, lanes.height()), m_shades.grid);
  painter.setFont(m_font);
  painter.setPen(m_shades.faintText);
  for (int pitch = 0; pitch <= m_roll.highestPitch() + kNotesPerOctave; pitch += kNotesPerOctave) {
    const double middle = m_scale.top(pitch) + m_scale.laneHeight() / 2;
    if (middle < lanes.top() + line / 2 || middle > lanes.bottom() - line / 2) continue;
    painter.drawText(QRectF(0, middle - line / 2, names - line * 0.3, line),
                     Qt::AlignRight | Qt::AlignVCenter, nameOf(pitch));
  }
}

}  // namespace korvel::ui
