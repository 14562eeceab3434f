// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/neck/NeckPlaces.h"

#include <QFont>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "music/Neck.h"

namespace korvel::ui {
namespace {

// In heights of a line of text.
constexpr double kMarks = 0.8;  ///< From the middle of the marks to both sides.
constexpr double kMarginOfNeck = 0.5;
constexpr double kLowestSpacing = 0.8;
constexpr double kBestSpacing = 1.6;
constexpr double kHighestSpacing = 2.4;
constexpr double kNarrowestFret = 1.0;
constexpr double kBestFret = 2.8;
constexpr double kBesideNeck = 5;

/// Of the neck's length from the nut, halfway between real frets and equal ones: high frets are
/// still wide enough for a finger's digit.
double shareOfFret(int fret, int frets) {
  const auto real = [](int n) { return 1 - std::pow(2.0, -n / 12.0); };
  return (real(fret) / real(frets) + static_cast<double>(fret) / frets) / 2;
}

QSize sizeOf(const QFont& font, double fret, double spacing) {
  const double line = QFontMetricsF(font).height();
  return QSizeF((kBesideNeck + fret * NeckPlaces::kFretsOfShortNeck) * line,
                (kStrings * spacing + NeckPlaces::kHeading + NeckPlaces::kNumbers +
                 2 * kMarginOfNeck) *
                    line)
      .toSize();
}

}  // namespace

QFont boldOf(QFont font) {
  font.setBold(true);
  return font;
}

NeckPlaces::NeckPlaces(const QFont& font, const QSizeF& size, int frets, bool leftHanded)
    : m_width(size.width()),
      m_line(QFontMetricsF(font).height()),
      m_heading(kMarginOfNeck * m_line),
      m_names(kMarginOfNeck * m_line),
      m_marks(m_names + QFontMetricsF(boldOf(font)).horizontalAdvance("Bb") + m_line),
      m_frets(frets),
      m_isMirrored(leftHanded) {
  const double left = m_marks + m_line;
  const double top = (kMarginOfNeck + kHeading) * m_line;
  const double room = size.height() - top - (kNumbers + kMarginOfNeck) * m_line;
  const double tall =
      std::clamp(room, kLowestSpacing * kStrings * m_line, kHighestSpacing * kStrings * m_line);
  m_board = QRectF(left, top, std::max(1.0, m_width - left - 2 * kMarginOfNeck * m_line), tall);
}

QSize NeckPlaces::bestSize(const QFont& font) { return sizeOf(font, kBestFret, kBestSpacing); }

QSize NeckPlaces::smallestSize(const QFont& font) {
  return sizeOf(font, kNarrowestFret, kLowestSpacing);
}

double NeckPlaces::spacing() const { return m_board.height() / kStrings; }

double NeckPlaces::radius() const {
  const double narrowest = wire(m_frets) - wire(m_frets - 1);
  return std::min(spacing() * 0.44, narrowest * 0.46);
}

double NeckPlaces::y(int string) const {
  return m_board.top() + (kStrings - 0.5 - string) * spacing();
}

double NeckPlaces::wire(int fret) const {
  return m_board.left() + m_board.width() * shareOfFret(fret, m_frets);
}

double NeckPlaces::x(int fret) const {
  return seen(fret == 0 ? m_marks : (wire(fret - 1) + wire(fret)) / 2);
}

QRectF NeckPlaces::cell(int string, int fret) const {
  const double left = fret == 0 ? m_marks - m_line * kMarks : wire(fret - 1);
  const double right = fret == 0 ? m_marks + m_line * kMarks : wire(fret);
  return seen(QRectF(left, y(string) - spacing() / 2, right - left, spacing()));
}

std::optional<NeckPlaces::Cell> NeckPlaces::cellAt(const QPointF& position) const {
  if (position.y() < m_board.top() || position.y() >= m_board.bottom()) return std::nullopt;
  const int below = static_cast<int>((position.y() - m_board.top()) / spacing());
  const int string = std::clamp(kStrings - 1 - below, 0, kStrings - 1);
  const double place = seen(position.x());
  for (int fret = 0; fret <= m_frets; ++fret)
    if (place < wire(fret)) return Cell{string, fret};
  return std::nullopt;
}

double NeckPlaces::seen(double place) const { return m_isMirrored ? m_width - place : place; }

QRectF NeckPlaces::seen(const QRectF& rect) const {
  return m_isMirrored ? QRectF(m_width - rect.right(), rect.top(), rect.width(), rect.height())
                      : rect;
}

}  // namespace korvel::ui
