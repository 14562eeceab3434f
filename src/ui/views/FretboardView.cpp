// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/FretboardView.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "model/book/QBHarmony.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "music/Pitch.h"
#include "ui/desktop/Text.h"
#include "ui/views/Shades.h"

namespace korvel::ui {
namespace {

constexpr int kFretsOfShortNeck = 12;
constexpr int kFretsOfLongNeck = 24;
constexpr int kInlays[] = {3, 5, 7, 9, 12, 15, 17, 19, 21, 24};

// In heights of a line of text.
constexpr double kMarginOfNeck = 0.5;
constexpr double kHeading = 1.5;
constexpr double kNumbers = 1.4;
constexpr double kLowestSpacing = 0.8;
constexpr double kBestSpacing = 1.6;
constexpr double kHighestSpacing = 2.4;
constexpr double kNarrowestFret = 1.0;
constexpr double kBestFret = 2.8;

bool isDouble(int fret) { return fret % kNotesPerOctave == 0; }

/// Of the neck's length from the nut, halfway between real frets and equal ones: high frets are
/// still wide enough for a finger's digit.
double shareOfFret(int fret, int frets) {
  const auto real = [](int n) { return 1 - std::pow(2.0, -n / 12.0); };
  return (real(fret) / real(frets) + static_cast<double>(fret) / frets) / 2;
}

QFont bold(QFont font) {
  font.setBold(true);
  return font;
}

QFont enlarged(QFont font) {
  if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * 1.2);
  return font;
}

}  // namespace

/// Where everything is. Fret 0 stands for the marks beyond the nut. Of a left-handed neck it is the
/// mirror image.
struct FretboardView::Neck {
  double line;  ///< Height of a line of text.
  double heading;
  double names;  ///< Left edge of the names of the strings.
  double marks;  ///< Middle of the marks of open and silent strings.
  QRectF board;
  int frets;
  double mirror = 0;  ///< The width of the widget when its left is right.

  double spacing() const { return board.height() / kStrings; }
  double radius() const {
    const double narrowest = wire(frets) - wire(frets - 1);
    return std::min(spacing() * 0.44, narrowest * 0.46);
  }
  double y(int string) const { return board.top() + (kStrings - 0.5 - string) * spacing(); }
  double wire(int fret) const { return board.left() + board.width() * shareOfFret(fret, frets); }
  double x(int fret) const { return seen(fret == 0 ? marks : (wire(fret - 1) + wire(fret)) / 2); }
  QRectF cell(int string, int fret) const {
    const double left = fret == 0 ? marks - line * 0.8 : wire(fret - 1);
    const double right = fret == 0 ? marks + line * 0.8 : wire(fret);
    return seen(QRectF(left, y(string) - spacing() / 2, right - left, spacing()));
  }
  /// What is there on the neck of a right hand, or the other way round.
  double seen(double place) const { return mirror > 0 ? mirror - place : place; }
  QRectF seen(const QRectF& rect) const {
    return mirror > 0 ? QRectF(mirror - rect.right(), rect.top(), rect.width(), rect.height())
                      : rect;
  }
};

FretboardView::FretboardView(QWidget* parent) : QWidget(parent), m_words(nullptr) {
  setAccessibleName(tr("Fretboard"));
  setFocusPolicy(Qt::StrongFocus);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

FretboardView::~FretboardView() = default;

void FretboardView::setSong(QBSong* song) {
  m_chord = -1;
  m_song = song;
  m_words = ChordWords(tuningOf(song));
  showNext(-1);
  showChord(-1);
}

void FretboardView::setFrets(int frets) {
  m_frets = frets > kFretsOfShortNeck ? kFretsOfLongNeck : kFretsOfShortNeck;
  update();
}

void FretboardView::setLeftHanded(bool leftHanded) {
  m_leftHanded = leftHanded;
  update();
}

int FretboardView::frets() const {
  const int needed = std::max({m_grip.highestFret(), m_nextGrip.highestFret(), m_fret});
  return std::max(
      m_frets, needed > kFretsOfShortNeck ? std::max(needed, kFretsOfLongNeck) : kFretsOfShortNeck);
}

bool FretboardView::isKnown(int chord) const {
  return m_song && chord >= 0 && chord < static_cast<int>(m_song->allChords().size());
}

ChordGrip FretboardView::gripOf(int chord) const {
  return isKnown(chord) ? ChordGrip(*m_song->allChords()[static_cast<std::size_t>(chord)])
                        : ChordGrip();
}

void FretboardView::showChord(int chord) {
  m_chord = isKnown(chord) ? chord : -1;
  m_grip = gripOf(chord);
  update();
  announce(*this);
}

void FretboardView::showNext(int chord) {
  m_next = isKnown(chord) ? chord : -1;
  m_nextGrip = gripOf(chord);
  update();
}

void FretboardView::moveCursor(int string, int fret) {
  m_string = std::clamp(string, 0, kStrings - 1);
  m_fret = std::clamp(fret, 0, kFretsOfLongNeck);
  update();
  announce(*this);
}

// ---- geometry

FretboardView::Neck FretboardView::neck() const {
  const double line = QFontMetricsF(font()).height();
  Neck neck{line, kMarginOfNeck * line, kMarginOfNeck * line, 0, {}, frets()};
  const QFontMetricsF names(bold(font()));
  neck.marks = neck.names + names.horizontalAdvance("Bb") + line;
  const double left = neck.marks + line;
  const double top = (kMarginOfNeck + kHeading) * line;
  const double room = height() - top - (kNumbers + kMarginOfNeck) * line;
  const double tall =
      std::clamp(room, kLowestSpacing * kStrings * line, kHighestSpacing * kStrings * line);
  neck.board = QRectF(left, top, std::max(1.0, width() - left - 2 * kMarginOfNeck * line), tall);
  if (m_leftHanded) neck.mirror = width();
  return neck;
}

QSize FretboardView::sizeHint() const {
  const double line = QFontMetricsF(font()).height();
  return QSizeF((5 + kBestFret * kFretsOfShortNeck) * line,
                (kStrings * kBestSpacing + kHeading + kNumbers + 2 * kMarginOfNeck) * line)
      .toSize();
}

QSize FretboardView::minimumSizeHint() const {
  const double line = QFontMetricsF(font()).height();
  return QSizeF((5 + kNarrowestFret * kFretsOfShortNeck) * line,
                (kStrings * kLowestSpacing + kHeading + kNumbers + 2 * kMarginOfNeck) * line)
      .toSize();
}

QPoint FretboardView::placeOf(int string, int fret) const {
  return neck().cell(string, fret).center().toPoint();
}

std::optional<FretboardView::Cell> FretboardView::cellAt(const QPointF& position) const {
  const Neck neck = this->neck();
  if (position.y() < neck.board.top() || position.y() >= neck.board.bottom()) return std::nullopt;
  const int below = static_cast<int>((position.y() - neck.board.top()) / neck.spacing());
  const int string = std::clamp(kStrings - 1 - below, 0, kStrings - 1);
  const double x = neck.seen(position.x());
  for (int fret = 0; fret <= neck.frets; ++fret)
    if (x < neck.wire(fret)) return Cell{string, fret};
  return std::nullopt;
}

// ---- painting

void FretboardView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Neck neck = this->neck();
  paintHeading(painter, neck);
  if (m_next >= 0) paintNextName(painter, neck);
  paintFrets(painter, neck);
  paintInlays(painter, neck);
  paintStrings(painter, neck);
  paintMarks(painter, neck);
  for (const ChordGrip::Tone& tone : m_grip.tones) paintTone(painter, neck, tone);
  for (const ChordGrip::Tone& tone : m_nextGrip.tones) paintNextTone(painter, neck, tone);
  if (hasFocus()) paintCursor(painter, neck);
}

void FretboardView::paintHeading(QPainter& painter, const Neck& neck) const {
  if (m_chord < 0) return;
  const Shades shades(palette());
  const QFont large = enlarged(bold(font()));
  const QString name = m_grip.name.empty() ? tr("no name") : toText(m_grip.name);
  const QRectF row(neck.names, neck.heading, width(), kHeading * neck.line);
  painter.setPen(m_grip.name.empty() ? shades.faintText : shades.text);
  painter.setFont(m_grip.name.empty() ? font() : large);
  QRectF used;
  painter.drawText(row, Qt::AlignLeft | Qt::AlignTop, name, &used);
  painter.setPen(shades.faintText);
  painter.setFont(font());
  const double x = std::max(neck.board.left(), used.right() + neck.line);
  painter.drawText(QRectF(x, used.top(), width(), used.height()), Qt::AlignLeft | Qt::AlignVCenter,
                   toText(m_grip.shorthand()));
}

void FretboardView::paintFrets(QPainter& painter, const Neck& neck) const {
  const Shades shades(palette());
  painter.fillRect(neck.seen(neck.board), mixed(shades.base, shades.text, 0.06));
  for (int fret = 0; fret <= neck.frets; ++fret) {
    const double pen = fret == 0 ? std::max(4.0, neck.line / 4) : std::max(1.0, neck.line / 14);
    const double x = fret == 0 ? neck.wire(0) - pen : std::round(neck.wire(fret) - pen / 2);
    painter.fillRect(neck.seen(QRectF(x, neck.board.top(), pen, neck.board.height())),
                     fret == 0 ? shades.faintText : mixed(shades.base, shades.text, 0.35));
  }
}

void FretboardView::paintInlays(QPainter& painter, const Neck& neck) const {
  const Shades shades(palette());
  const QRectF numbers(0, neck.board.bottom(), 0, kNumbers * neck.line);
  const double radius = neck.radius() * 0.45;
  painter.setFont(font());
  for (const int fret : kInlays) {
    if (fret > neck.frets) break;
    const double x = neck.x(fret);
    const double apart = isDouble(fret) ? neck.spacing() : 0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(shades.grid);
    painter.drawEllipse(QPointF(x, neck.board.center().y() - apart), radius, radius);
    if (apart > 0) painter.drawEllipse(QPointF(x, neck.board.center().y() + apart), radius, radius);
    painter.setPen(shades.faintText);
    painter.drawText(numbers.adjusted(x - neck.line, 0, x + neck.line, 0), Qt::AlignCenter,
                     QString::number(fret));
  }
}

void FretboardView::paintStrings(QPainter& painter, const Neck& neck) const {
  const Shades shades(palette());
  painter.setFont(bold(font()));
  const auto outside = m_leftHanded ? Qt::AlignRight : Qt::AlignLeft;
  for (int string = 0; string < kStrings; ++string) {
    const double pen = std::max(1.0, neck.line / 16 * (1 + (kStrings - 1 - string) * 0.3));
    const QRectF wound(neck.board.left(), neck.y(string) - pen / 2, neck.board.width(), pen);
    painter.fillRect(neck.seen(wound), shades.line);
    painter.setPen(shades.text);
    const QRectF name(neck.names, neck.y(string) - neck.line, neck.line * 2, neck.line * 2);
    painter.drawText(neck.seen(name), static_cast<int>(outside | Qt::AlignVCenter),
                     m_words.note(string));
  }
}

/// A cross for each string that does not sound; rings of open strings are drawn with the tones.
void FretboardView::paintMarks(QPainter& painter, const Neck& neck) const {
  if (m_chord < 0) return;
  const double arm = neck.radius() * 0.5;
  painter.setPen(QPen(Shades(palette()).faintText, std::max(1.5, neck.line / 9)));
  for (int string = 0; string < kStrings; ++string) {
    const auto isOpen = [&](const auto& tone) { return tone.string == string && tone.fret == 0; };
    if (m_grip.isPlayed(string) || std::ranges::any_of(m_grip.tones, isOpen)) continue;
    const QPointF middle(neck.x(0), neck.y(string));
    painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
    painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
  }
}

void FretboardView::paintTone(QPainter& painter, const Neck& neck,
                              const ChordGrip::Tone& tone) const {
  if (tone.string < 0 || tone.string >= kStrings || tone.fret < 0) return;
  const Shades shades(palette());
  const QPointF middle(neck.x(tone.fret), neck.y(tone.string));
  const bool open = tone.fret == 0;
  const double radius = neck.radius() * (open ? 0.55 : 1);
  const double pen = std::max(1.5, neck.line / 9);
  const QColor ink = tone.active ? shades.text : shades.faintText;
  painter.setPen(QPen(open || !tone.active ? ink : shades.mark, pen,
                      tone.active ? Qt::SolidLine : Qt::DashLine));
  painter.setBrush(open ? QBrush(Qt::NoBrush) : tone.active ? shades.accent : shades.base);
  painter.drawEllipse(middle, radius - pen / 2, radius - pen / 2);
  if (open) return;
  painter.setPen(tone.active ? shades.onAccent : ink);
  paintLabel(painter, neck, tone);
}

void FretboardView::paintLabel(QPainter& painter, const Neck& neck,
                               const ChordGrip::Tone& tone) const {
  const double radius = neck.radius();
  const QString label =
      tone.finger ? QString::number(*tone.finger) : cellNote({tone.string, tone.fret});
  QFont fitting = bold(font());
  fitting.setPixelSize(std::max(6, static_cast<int>(radius * (label.size() > 1 ? 0.95 : 1.2))));
  painter.setFont(fitting);
  painter.drawText(
      QRectF(neck.x(tone.fret) - radius, neck.y(tone.string) - radius, 2 * radius, 2 * radius),
      Qt::AlignCenter, label);
}

QPen FretboardView::framePen(const Neck& neck) const {
  return QPen(Shades(palette()).text, std::max(1.5, neck.line / 9));
}

/// At the right, in a frame such as its tones have.
void FretboardView::paintNextName(QPainter& painter, const Neck& neck) const {
  const QFont large = enlarged(bold(font()));
  const QString name =
      m_nextGrip.name.empty() ? toText(m_nextGrip.shorthand()) : toText(m_nextGrip.name);
  const double width = QFontMetricsF(large).horizontalAdvance(name) + neck.line;
  const QRectF frame(this->width() - neck.names - width, neck.heading - 1, width,
                     QFontMetricsF(large).height() + 2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(framePen(neck));
  painter.drawRoundedRect(frame, neck.line / 4, neck.line / 4);
  painter.setFont(large);
  painter.drawText(frame, Qt::AlignCenter, name);
  painter.setFont(font());
  painter.setPen(Shades(palette()).faintText);
  painter.drawText(QRectF(0, frame.top(), frame.left() - neck.line / 2, frame.height()),
                   Qt::AlignRight | Qt::AlignVCenter, tr("Next"));
}

/// A frame, around the dot where the chord has that tone as well.
void FretboardView::paintNextTone(QPainter& painter, const Neck& neck,
                                  const ChordGrip::Tone& tone) const {
  if (!tone.active || tone.string < 0 || tone.string >= kStrings || tone.fret < 0) return;
  const auto isHere = [&](const ChordGrip::Tone& other) {
    return other.string == tone.string && other.fret == tone.fret && other.active;
  };
  const bool stays = std::ranges::any_of(m_grip.tones, isHere);
  const double half = neck.radius() * (tone.fret == 0 ? 0.75 : 1.05);
  painter.setPen(framePen(neck));
  painter.setBrush(stays ? QBrush(Qt::NoBrush) : QBrush(Shades(palette()).base));
  painter.drawRoundedRect(
      QRectF(neck.x(tone.fret) - half, neck.y(tone.string) - half, 2 * half, 2 * half), half / 3,
      half / 3);
  if (!stays && tone.fret > 0) paintLabel(painter, neck, tone);
}

void FretboardView::paintCursor(QPainter& painter, const Neck& neck) const {
  painter.setPen(QPen(Shades(palette()).text, std::max(1.0, neck.line / 12), Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(neck.cell(m_string, m_fret).adjusted(1, 1, -1, -1));
}

// ---- words

QString FretboardView::cellNote(const Cell& cell) const {
  const int open = m_words.pitchClass(cell.string);
  return toText(QBHarmony::noteAsString(pitchClass(open + cell.fret)).value_or(""));
}

QString FretboardView::cellText(const Cell& cell) const {
  const QString string = m_words.string(cell.string);
  return cell.fret == 0 ? tr("%1, open: %2").arg(string, cellNote(cell))
                        : tr("%1, fret %2: %3").arg(string).arg(cell.fret).arg(cellNote(cell));
}

QString FretboardView::spokenText() const {
  const QString cell = cellText({m_string, m_fret});
  if (!isKnown(m_chord)) return cell;
  const QBChord& chord = *m_song->allChords()[static_cast<std::size_t>(m_chord)];
  const QString grip = tr("%1. %2", "a fret, the grip of a chord").arg(cell, m_words.grip(chord));
  if (!isKnown(m_next)) return grip;
  const QBChord& next = *m_song->allChords()[static_cast<std::size_t>(m_next)];
  return tr("%1. Next: %2", "a chord, another one").arg(grip, m_words.grip(next));
}

QRect FretboardView::spokenRect() const { return neck().cell(m_string, m_fret).toAlignedRect(); }

// ---- input

void FretboardView::mousePressEvent(QMouseEvent* event) {
  const auto cell = cellAt(event->position());
  if (event->button() != Qt::LeftButton || !cell) return QWidget::mousePressEvent(event);
  moveCursor(cell->string, cell->fret);
  emit clicked(cell->string, cell->fret);
}

void FretboardView::keyPressEvent(QKeyEvent* event) {
  const int towardsBridge = m_leftHanded ? -1 : 1;
  switch (event->key()) {
    case Qt::Key_Up:
      return moveCursor(m_string + 1, m_fret);
    case Qt::Key_Down:
      return moveCursor(m_string - 1, m_fret);
    case Qt::Key_Left:
      return moveCursor(m_string, m_fret - towardsBridge);
    case Qt::Key_Right:
      return moveCursor(m_string, m_fret + towardsBridge);
    case Qt::Key_Home:
      return moveCursor(m_string, 0);
    case Qt::Key_End:
      return moveCursor(m_string, frets());
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      emit clicked(m_string, m_fret);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

bool FretboardView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const auto cell = cellAt(help->pos());
  if (cell)
    QToolTip::showText(help->globalPos(), cellText(*cell), this,
                       neck().cell(cell->string, cell->fret).toAlignedRect());
  else
    QToolTip::hideText();
  return true;
}

void FretboardView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

}  // namespace korvel::ui
