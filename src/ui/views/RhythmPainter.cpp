// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/RhythmPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>

#include "music/Neck.h"

namespace korvel::ui {
namespace {

constexpr int kHalf = 2;
constexpr int kQuarter = 4;

// In columns, of a note's place.
constexpr double kStem = 1.5;
constexpr double kFlag = 0.9;
constexpr double kDotOfNote = 0.8;

// In rows from the top string on.
constexpr double kStemTop = 6.15;
constexpr double kStemEnd = 8.5;
constexpr double kHeadOfHalf = 7.5;
constexpr double kHeadOfWhole = 6.7;
constexpr double kDotOfStem = 7.3;
constexpr double kMiddleOfRest = 7.4;
constexpr double kBracket = 9.1;
constexpr double kLowerTop = 9.6;
constexpr double kLowerEnd = 10.8;
constexpr double kLowerHead = 10.5;
constexpr double kLowerDot = 10.2;
constexpr double kMiddleOfString = 0.5;

// In rows.
constexpr double kBeam = 0.24;
constexpr double kBeamDistance = 0.42;
constexpr double kHeadHeight = 0.5;
constexpr double kDotRadius = 0.09;
constexpr double kDeepestTie = 0.55;

bool shareBeam(const TabSigns::Note& one, const TabSigns::Note& other) {
  return one.bar == other.bar && one.sign.beam && one.sign.beam == other.sign.beam;
}

bool shareTriplet(const TabSigns::Note& one, const TabSigns::Note& other) {
  return one.bar == other.bar && one.sign.triplet && one.sign.triplet == other.sign.triplet;
}

}  // namespace

void RhythmPainter::drawSystem(QPainter& painter, const TabSigns::System& signs, int top) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& ring : signs.rings) drawRing(painter, ring, top);
  for (const auto& tie : signs.ties) drawTie(painter, tie, top);
  for (const auto& time : signs.times) drawTime(painter, time, top);
  for (const Note& note : signs.notes) {
    if (note.sign.isRest)
      drawRest(painter, note, top);
    else
      drawNote(painter, note, top);
  }
  for (const Note& note : signs.lower) drawLower(painter, note, top);
  drawBeams(painter, signs.notes, top);
  drawTriplets(painter, signs.notes, top);
  painter.restore();
}

void RhythmPainter::drawTempo(QPainter& painter, const TabSigns::Tempo& tempo) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF head = at(tempo.x + 0.6, tempo.row + 0.75);
  const double side = m_cell.height() * kHeadHeight * 0.55;
  drawHead(painter, head, false);
  stroke(painter, m_pen);
  painter.drawLine(head + QPointF(side, 0), QPointF(head.x() + side, at(0, tempo.row + 0.05).y()));
  if (tempo.isDotted) drawDot(painter, head + QPointF(m_cell.width(), 0));
  QString words = QString("= %1").arg(tempo.beats);
  if (tempo.isSwung) words += "   Swing";
  painter.setFont(m_font);
  painter.setPen(m_shades.faintText);
  painter.drawText(QRectF(at(tempo.x + 2.5, tempo.row), at(tempo.x + 40.0, tempo.row + 1.0)),
                   Qt::AlignLeft | Qt::AlignVCenter, words);
  painter.restore();
}

// ---- notes

QPointF RhythmPainter::at(double x, double y) const {
  return {x * m_cell.width(), y * m_cell.height()};
}

QPointF RhythmPainter::stem(const Note& note, int top, double row) const {
  return at(note.x + kStem, top + row);
}

void RhythmPainter::drawNote(QPainter& painter, const Note& note, int top) const {
  const int value = note.sign.value;
  double dot = kDotOfStem;
  if (value < kQuarter) {
    dot = value < kHalf ? kHeadOfWhole : kHeadOfHalf;
    drawHead(painter, stem(note, top, dot), true);
  }
  if (value >= kHalf) {
    const double end = value == kHalf ? kHeadOfHalf - kHeadHeight / 2 : kStemEnd;
    stroke(painter, m_pen);
    painter.drawLine(stem(note, top, kStemTop), stem(note, top, end));
  }
  if (!note.sign.beam) drawFlags(painter, note, top, kStemEnd);
  if (note.sign.isDotted)
    drawDot(painter, stem(note, top, dot) + QPointF(kDotOfNote * m_cell.width(), 0));
}

/// What is held has no beams.
void RhythmPainter::drawLower(QPainter& painter, const Note& note, int top) const {
  const int value = note.sign.value;
  const bool hasHead = value < kQuarter;
  if (hasHead) drawHead(painter, stem(note, top, kLowerHead), true);
  if (value >= kHalf) {
    stroke(painter, m_pen);
    const double end = hasHead ? kLowerHead - kHeadHeight / 2 : kLowerEnd;
    painter.drawLine(stem(note, top, kLowerTop), stem(note, top, end));
  }
  drawFlags(painter, note, top, kLowerEnd);
  if (note.sign.isDotted)
    drawDot(painter, stem(note, top, hasHead ? kLowerHead : kLowerDot) +
                         QPointF(kDotOfNote * m_cell.width(), 0));
}

void RhythmPainter::drawDot(QPainter& painter, const QPointF& center) const {
  const double radius = m_cell.height() * kDotRadius;
  fill(painter);
  painter.drawEllipse(center, radius, radius);
}

void RhythmPainter::drawHead(QPainter& painter, const QPointF& center, bool isHollow) const {
  const double height = m_cell.height() * kHeadHeight / 2;
  if (isHollow)
    stroke(painter, m_pen * 1.4);
  else
    fill(painter);
  painter.drawEllipse(center, height * 1.15, height * 0.85);
}

void RhythmPainter::drawFlags(QPainter& painter, const Note& note, int top, double end) const {
  stroke(painter, m_pen * 1.6);
  for (int flag = 0; flag < note.sign.flags(); ++flag) {
    const double row = end - flag * kBeamDistance;
    painter.drawLine(stem(note, top, row),
                     stem(note, top, row - 0.5) + QPointF(kFlag * m_cell.width(), 0));
  }
}

// ---- rests

void RhythmPainter::drawRest(QPainter& painter, const Note& note, int top) const {
  const QPointF center = stem(note, top, kMiddleOfRest);
  const int value = note.sign.value;
  if (value < kQuarter) {
    drawLongRest(painter, center, value < kHalf);
  } else if (value == kQuarter) {
    const double x = m_cell.width() * 0.35;
    const double y = m_cell.height();
    stroke(painter, m_pen * 1.8);
    QPainterPath path(center + QPointF(-x * 0.6, -y * 0.85));
    path.lineTo(center + QPointF(x, -y * 0.3));
    path.lineTo(center + QPointF(-x * 0.7, y * 0.1));
    path.lineTo(center + QPointF(x, y * 0.6));
    path.quadTo(center + QPointF(-x * 1.8, y * 0.3), center + QPointF(x * 0.2, y * 0.95));
    painter.drawPath(path);
  } else {
    drawShortRest(painter, center, note.sign.flags());
  }
  if (note.sign.isDotted) drawDot(painter, center + QPointF(kDotOfNote * m_cell.width(), 0));
}

/// A block that hangs from a line or lies on it.
void RhythmPainter::drawLongRest(QPainter& painter, const QPointF& center, bool hangs) const {
  const double width = m_cell.width() * 1.3;
  const double height = m_cell.height() * 0.35;
  fill(painter);
  painter.drawRect(
      QRectF(center.x() - width / 2, center.y() - (hangs ? 0 : height), width, height));
  stroke(painter, m_pen);
  painter.drawLine(center - QPointF(width, 0), center + QPointF(width, 0));
}

void RhythmPainter::drawShortRest(QPainter& painter, const QPointF& center, int flags) const {
  const double x = m_cell.width() * 0.45;
  const double y = m_cell.height();
  const double top = -0.3 * y * flags - 0.1 * y;
  stroke(painter, m_pen * 1.3);
  painter.drawLine(center + QPointF(x, top), center + QPointF(-x * 0.3, y * 0.85));
  for (int flag = 0; flag < flags; ++flag) {
    const QPointF end = center + QPointF(x * (1 - flag * 0.35), top + flag * y * kBeamDistance);
    const QPointF dot = end + QPointF(-x * 1.7, y * 0.08);
    QPainterPath path(dot);
    path.quadTo(end + QPointF(-x * 0.6, y * 0.35), end);
    stroke(painter, m_pen * 1.3);
    painter.drawPath(path);
    drawDot(painter, dot);
  }
}

// ---- beams and triplets

void RhythmPainter::drawBeams(QPainter& painter, const Notes& notes, int top) const {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const Note& note = notes[i];
    if (!note.sign.beam) continue;
    const Note* before = i > 0 && shareBeam(notes[i - 1], note) ? &notes[i - 1] : nullptr;
    const Note* after =
        i + 1 < notes.size() && shareBeam(note, notes[i + 1]) ? &notes[i + 1] : nullptr;
    for (int level = 0; level < note.sign.flags(); ++level) {
      const auto reaches = [level](const Note* other) {
        return other && other->sign.flags() > level;
      };
      if (reaches(after))
        drawBeam(painter, note.x + kStem, after->x + kStem, level, top);
      else if (!reaches(before))
        drawStub(painter, note, level, before == nullptr, top);
    }
  }
}

void RhythmPainter::drawStub(QPainter& painter, const Note& note, int level, bool toRight,
                             int top) const {
  const double x = note.x + kStem;
  drawBeam(painter, toRight ? x : x - kFlag, toRight ? x + kFlag : x, level, top);
}

void RhythmPainter::drawBeam(QPainter& painter, double from, double to, int level, int top) const {
  const double row = top + kStemEnd - level * kBeamDistance;
  fill(painter);
  painter.drawRect(
      QRectF(at(from, row - kBeam), at(to, row)).adjusted(-m_pen / 2, 0, m_pen / 2, 0));
}

void RhythmPainter::drawTriplets(QPainter& painter, const Notes& notes, int top) const {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    if (!notes[i].sign.triplet) continue;
    const std::size_t first = i;
    bool isBeamed = true;
    while (i + 1 < notes.size() && shareTriplet(notes[first], notes[i + 1])) {
      ++i;
      isBeamed = isBeamed && shareBeam(notes[first], notes[i]);
    }
    drawTriplet(painter, notes[first], notes[i], !isBeamed, top);
  }
}

/// A beam alone says what the number is for.
void RhythmPainter::drawTriplet(QPainter& painter, const Note& first, const Note& last,
                                bool hasBracket, int top) const {
  const QPointF begin = stem(first, top, kBracket) - QPointF(m_cell.width() * 0.5, 0);
  const QPointF end = stem(last, top, kBracket) + QPointF(m_cell.width() * 0.5, 0);
  const QPointF middle = (begin + end) / 2;
  if (hasBracket) {
    const QPointF gap(m_cell.width() * 0.8, 0);
    const QPointF hook(0, m_cell.height() * 0.25);
    stroke(painter, m_pen);
    painter.drawPolyline(QPolygonF{begin - hook, begin, middle - gap});
    painter.drawPolyline(QPolygonF{middle + gap, end, end - hook});
  }
  painter.setFont(scaled(0.8));
  painter.setPen(m_shades.faintText);
  painter.drawText(QRectF(middle.x() - m_cell.width(), middle.y() - m_cell.height() / 2,
                          2 * m_cell.width(), m_cell.height()),
                   Qt::AlignCenter, "3");
}

// ---- on the strings

void RhythmPainter::drawTie(QPainter& painter, const TabSigns::Line& tie, int top) const {
  const double row = top + kStrings - 1 - tie.string + kMiddleOfString + 0.2;
  const QPointF from = at(tie.from, row);
  const QPointF to = at(tie.to, row);
  const double depth = std::min(m_cell.height() * kDeepestTie, (to.x() - from.x()) * 0.4);
  QPainterPath path(from);
  path.quadTo((from + to) / 2 + QPointF(0, depth * 1.5), to);
  stroke(painter, m_pen * 1.2);
  painter.drawPath(path);
}

void RhythmPainter::drawRing(QPainter& painter, const TabSigns::Line& ring, int top) const {
  const double row = top + kStrings - 1 - ring.string + kMiddleOfString;
  stroke(painter, m_pen * 2.4);
  painter.drawLine(at(ring.from, row), at(ring.to, row));
}

/// The beats stand above the middle string line, their kind below it.
void RhythmPainter::drawTime(QPainter& painter, const TabSigns::Time& time, int top) const {
  const double half = (kStrings - 1) / 2.0;
  QFont font = scaled(1);
  font.setBold(true);
  font.setPixelSize(std::max(1, static_cast<int>(m_cell.height() * half)));
  painter.setFont(font);
  painter.setPen(m_shades.text);
  const double middle = top + kStrings / 2.0;
  painter.drawText(QRectF(at(time.x, middle - half), at(time.x + time.columns, middle)),
                   Qt::AlignCenter, QString::number(time.beat));
  painter.drawText(QRectF(at(time.x, middle), at(time.x + time.columns, middle + half)),
                   Qt::AlignCenter, QString::number(time.beattype));
}

// ---- pens

void RhythmPainter::stroke(QPainter& painter, double width) const {
  painter.setPen(QPen(m_shades.faintText, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
}

void RhythmPainter::fill(QPainter& painter) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(m_shades.faintText);
}

QFont RhythmPainter::scaled(double factor) const {
  QFont font = m_font;
  if (font.pointSizeF() > 0)
    font.setPointSizeF(font.pointSizeF() * factor);
  else
    font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * factor)));
  return font;
}

}  // namespace korvel::ui
