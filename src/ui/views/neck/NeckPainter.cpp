// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/neck/NeckPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "music/Neck.h"
#include "music/Pitch.h"
#include "ui/desktop/Text.h"
#include "ui/views/ChordWords.h"

namespace korvel::ui {
namespace {

constexpr int kInlays[] = {3, 5, 7, 9, 12, 15, 17, 19, 21, 24};

bool isDouble(int fret) { return fret % kNotesPerOctave == 0; }

QFont enlarged(QFont font) {
  if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * 1.2);
  return font;
}

}  // namespace

void NeckPainter::paint(QPainter& painter, const Shown& shown) const {
  if (shown.grip) paintHeading(painter, *shown.grip);
  if (shown.next) paintNextName(painter, *shown.next);
  paintFrets(painter);
  paintInlays(painter);
  paintStrings(painter);
  if (shown.grip) {
    paintMarks(painter, *shown.grip);
    for (const ChordGrip::Tone& tone : shown.grip->tones) paintTone(painter, tone);
  }
  if (shown.next)
    for (const ChordGrip::Tone& tone : shown.next->tones) paintNextTone(painter, tone, shown.grip);
  if (shown.cursor) paintCursor(painter, *shown.cursor);
}

void NeckPainter::paintHeading(QPainter& painter, const ChordGrip& grip) const {
  const QFont large = enlarged(boldOf(m_font));
  const QString name = grip.name.empty() ? tr("no name") : toText(grip.name);
  const QRectF row(m_neck.names(), m_neck.heading(), m_neck.width(),
                   NeckPlaces::kHeading * m_neck.line());
  painter.setPen(grip.name.empty() ? m_shades.faintText : m_shades.text);
  painter.setFont(grip.name.empty() ? m_font : large);
  QRectF used;
  painter.drawText(row, Qt::AlignLeft | Qt::AlignTop, name, &used);
  painter.setPen(m_shades.faintText);
  painter.setFont(m_font);
  const double x = std::max(m_neck.board().left(), used.right() + m_neck.line());
  painter.drawText(QRectF(x, used.top(), m_neck.width(), used.height()),
                   Qt::AlignLeft | Qt::AlignVCenter, toText(grip.shorthand()));
}

void NeckPainter::paintFrets(QPainter& painter) const {
  painter.fillRect(m_neck.seen(m_neck.board()), mixed(m_shades.base, m_shades.text, 0.06));
  for (int fret = 0; fret <= m_neck.frets(); ++fret) {
    const double pen =
        fret == 0 ? std::max(4.0, m_neck.line() / 4) : std::max(1.0, m_neck.line() / 14);
    const double x = fret == 0 ? m_neck.wire(0) - pen : std::round(m_neck.wire(fret) - pen / 2);
    painter.fillRect(m_neck.seen(QRectF(x, m_neck.board().top(), pen, m_neck.board().height())),
                     fret == 0 ? m_shades.faintText : mixed(m_shades.base, m_shades.text, 0.35));
  }
}

void NeckPainter::paintInlays(QPainter& painter) const {
  const QRectF numbers(0, m_neck.board().bottom(), 0, NeckPlaces::kNumbers * m_neck.line());
  const double radius = m_neck.radius() * 0.45;
  painter.setFont(m_font);
  for (const int fret : kInlays) {
    if (fret > m_neck.frets()) break;
    const double x = m_neck.x(fret);
    const double apart = isDouble(fret) ? m_neck.spacing() : 0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_shades.grid);
    painter.drawEllipse(QPointF(x, m_neck.board().center().y() - apart), radius, radius);
    if (apart > 0)
      painter.drawEllipse(QPointF(x, m_neck.board().center().y() + apart), radius, radius);
    painter.setPen(m_shades.faintText);
    painter.drawText(numbers.adjusted(x - m_neck.line(), 0, x + m_neck.line(), 0), Qt::AlignCenter,
                     QString::number(fret));
  }
}

void NeckPainter::paintStrings(QPainter& painter) const {
  painter.setFont(boldOf(m_font));
  const auto outside = m_neck.isMirrored() ? Qt::AlignRight : Qt::AlignLeft;
  for (int string = 0; string < kStrings; ++string) {
    const double pen = std::max(1.0, m_neck.line() / 16 * (1 + (kStrings - 1 - string) * 0.3));
    const QRectF wound(m_neck.board().left(), m_neck.y(string) - pen / 2, m_neck.board().width(),
                       pen);
    painter.fillRect(m_neck.seen(wound), m_shades.line);
    painter.setPen(m_shades.text);
    const QRectF name(m_neck.names(), m_neck.y(string) - m_neck.line(), m_neck.line() * 2,
                      m_neck.line() * 2);
    painter.drawText(m_neck.seen(name), static_cast<int>(outside | Qt::AlignVCenter),
                     m_words.note(string));
  }
}

/// A cross for each string that does not sound; rings of open strings are drawn with the tones.
void NeckPainter::paintMarks(QPainter& painter, const ChordGrip& grip) const {
  const double arm = m_neck.radius() * 0.5;
  painter.setPen(QPen(m_shades.faintText, std::max(1.5, m_neck.line() / 9)));
  for (int string = 0; string < kStrings; ++string) {
    const auto isOpen = [&](const auto& tone) { return tone.string == string && tone.fret == 0; };
    if (grip.isPlayed(string) || std::ranges::any_of(grip.tones, isOpen)) continue;
    const QPointF middle(m_neck.x(0), m_neck.y(string));
    painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
    painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
  }
}

void NeckPainter::paintTone(QPainter& painter, const ChordGrip::Tone& tone) const {
  if (tone.string < 0 || tone.string >= kStrings || tone.fret < 0) return;
  const QPointF middle(m_neck.x(tone.fret), m_neck.y(tone.string));
  const bool open = tone.fret == 0;
  const double radius = m_neck.radius() * (open ? 0.55 : 1);
  const double pen = std::max(1.5, m_neck.line() / 9);
  const QColor ink = tone.active ? m_shades.text : m_shades.faintText;
  painter.setPen(QPen(open || !tone.active ? ink : m_shades.mark, pen,
                      tone.active ? Qt::SolidLine : Qt::DashLine));
  painter.setBrush(open ? QBrush(Qt::NoBrush) : tone.active ? m_shades.accent : m_shades.base);
  painter.drawEllipse(middle, radius - pen / 2, radius - pen / 2);
  if (open) return;
  painter.setPen(tone.active ? m_shades.onAccent : ink);
  paintLabel(painter, tone);
}

void NeckPainter::paintLabel(QPainter& painter, const ChordGrip::Tone& tone) const {
  const double radius = m_neck.radius();
  const QString label =
      tone.finger ? QString::number(*tone.finger) : m_words.noteAt(tone.string, tone.fret);
  QFont fitting = boldOf(m_font);
  fitting.setPixelSize(std::max(6, static_cast<int>(radius * (label.size() > 1 ? 0.95 : 1.2))));
  painter.setFont(fitting);
  painter.drawText(
      QRectF(m_neck.x(tone.fret) - radius, m_neck.y(tone.string) - radius, 2 * radius, 2 * radius),
      Qt::AlignCenter, label);
}

QPen NeckPainter::framePen() const { return QPen(m_shades.text, std::max(1.5, m_neck.line() / 9)); }

/// At the right, in a frame such as its tones have.
void NeckPainter::paintNextName(QPainter& painter, const ChordGrip& next) const {
  const QFont large = enlarged(boldOf(m_font));
  const QString name = next.name.empty() ? toText(next.shorthand()) : toText(next.name);
  const double width = QFontMetricsF(large).horizontalAdvance(name) + m_neck.line();
  const QRectF frame(m_neck.width() - m_neck.names() - width, m_neck.heading() - 1, width,
                     QFontMetricsF(large).height() + 2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(framePen());
  painter.drawRoundedRect(frame, m_neck.line() / 4, m_neck.line() / 4);
  painter.setFont(large);
  painter.drawText(frame, Qt::AlignCenter, name);
  painter.setFont(m_font);
  painter.setPen(m_shades.faintText);
  painter.drawText(QRectF(0, frame.top(), frame.left() - m_neck.line() / 2, frame.height()),
                   Qt::AlignRight | Qt::AlignVCenter, tr("Next"));
}

/// A frame, around the dot where the chord has that tone as well.
void NeckPainter::paintNextTone(QPainter& painter, const ChordGrip::Tone& tone,
                                const ChordGrip* grip) const {
  if (!tone.active || tone.string < 0 || tone.string >= kStrings || tone.fret < 0) return;
  const auto isHere = [&](const ChordGrip::Tone& other) {
    return other.string == tone.string && other.fret == tone.fret && other.active;
  };
  const bool stays = grip && std::ranges::any_of(grip->tones, isHere);
  const double half = m_neck.radius() * (tone.fret == 0 ? 0.75 : 1.05);
  painter.setPen(framePen());
  painter.setBrush(stays ? QBrush(Qt::NoBrush) : QBrush(m_shades.base));
  painter.drawRoundedRect(
      QRectF(m_neck.x(tone.fret) - half, m_neck.y(tone.string) - half, 2 * half, 2 * half),
      half / 3, half / 3);
  if (!stays && tone.fret > 0) paintLabel(painter, tone);
}

void NeckPainter::paintCursor(QPainter& painter, const NeckPlaces::Cell& cell) const {
  painter.setPen(QPen(m_shades.text, std::max(1.0, m_neck.line() / 12), Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(m_neck.cell(cell.string, cell.fret).adjusted(1, 1, -1, -1));
}

}  // namespace korvel::ui
