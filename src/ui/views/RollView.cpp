// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/RollView.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "music/ChordStep.h"
#include "music/Pitch.h"
#include "ui/desktop/Text.h"
#include "ui/views/ChordWords.h"
#include "ui/views/Shades.h"

namespace korvel::ui {
namespace {

constexpr int kSmallestZoom = 20;
constexpr int kLargestZoom = 800;
constexpr double kZoomFactor = 1.25;
constexpr int kLanesBeside = 1;  ///< Free ones above and below the tones.
constexpr int kFewestLanes = 14;
constexpr int kOctaveOfMidiZero = -1;

// In heights of a line of text.
constexpr double kStepWidth = 1.1;
constexpr double kRulerHeight = 1.3;
constexpr double kTallestLane = 0.9;
constexpr double kLabelDistance = 3;
constexpr double kOutlinedLane = 0.4;

QString nameOf(int pitch) {
  const auto note = QBHarmony::noteAsString(pitchClass(pitch)).value_or("");
  return toText(note) + QString::number(pitch / kNotesPerOctave + kOctaveOfMidiZero);
}

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

/// Of the recording, or from the beginning on.
double secondsOf(QBSong& song, int chord) {
  if (!song.isOnBeats()) return chord * kSecondsOfChord;
  const SongTime time(song);
  const double begin = time.isAsRecorded() ? 0 : time.secondsOf(time.begin());
  return std::max(time.secondsOf(time.tickOf(static_cast<std::size_t>(chord))) - begin, 0.0);
}

QString timeOf(QBSong& song, int chord) {
  const int seconds = static_cast<int>(secondsOf(song, chord));
  return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

/// How near to a line a press means it, in pixels.
constexpr double kReachOfLine = 4;

}  // namespace

RollView::RollView(QWidget* parent) : QAbstractScrollArea(parent) {
  setAccessibleName(tr("Roll"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setBackgroundRole(QPalette::Base);
  remeasure();
}

RollView::~RollView() = default;

void RollView::setSong(QBSong* song) {
  if (song != m_song) {
    m_cursor = -1;
    horizontalScrollBar()->setValue(0);
  }
  m_song = song;
  m_playing = -1;
  refresh();
}

void RollView::refresh() {
  m_roll = m_song ? ToneRoll(*m_song) : ToneRoll();
  m_loop = m_song ? loopOf(*m_song) : ChordSpan();
  m_playing = std::min(m_playing, m_roll.chords() - 1);
  m_cursor = std::min(m_cursor, m_roll.chords() - 1);
  remeasure();
  announce(*this);
}

void RollView::showPlaying(int chord) {
  if (chord == m_playing) return;
  updateColumn(m_playing);
  m_playing = chord;
  updateColumn(m_playing);
  constexpr double kPlaceOfNextPage = 0.1;
  if (chord >= 0) reveal(chord, kPlaceOfNextPage);
}

void RollView::showCursor(int chord) {
  if (chord == m_cursor || chord >= m_roll.chords()) return;
  updateColumn(m_cursor);
  m_cursor = chord;
  updateColumn(m_cursor);
  if (chord >= 0) reveal(chord, 0.5);
  announce(*this);
}

void RollView::setZoom(int percent) {
  percent = std::clamp(percent, kSmallestZoom, kLargestZoom);
  if (percent == m_zoom) return;
  const int middle = chordAt(viewport()->width() / 2.0);
  m_zoom = percent;
  remeasure();
  const double place = width(1) * (m_roll.begin(middle) + m_roll.stepsOf(middle) / 2.0);
  horizontalScrollBar()->setValue(static_cast<int>(place + m_names - viewport()->width() / 2.0));
  emit zoomChanged(percent);
}

void RollView::zoomIn() { setZoom(static_cast<int>(std::ceil(m_zoom * kZoomFactor))); }

void RollView::zoomOut() { setZoom(static_cast<int>(m_zoom / kZoomFactor)); }

// ---- geometry

void RollView::remeasure() {
  const QFontMetricsF metrics(font());
  m_line = metrics.height();
  m_names = std::ceil(metrics.horizontalAdvance("Bb4") + m_line * 0.6);
  m_step = std::max(2.0, m_line * kStepWidth * m_zoom / 100);
  const int wanted =
      static_cast<int>(std::ceil(width(m_roll.begin(m_roll.chords())) + m_names + m_line));
  QScrollBar& bar = *horizontalScrollBar();
  bar.setRange(0, std::max(0, wanted - viewport()->width()));
  bar.setPageStep(std::max(1, viewport()->width() - static_cast<int>(m_names)));
  bar.setSingleStep(static_cast<int>(4 * m_step));
  viewport()->update();
}

double RollView::xOfStep(int step) const {
  return m_names + width(step) - horizontalScrollBar()->value();
}

double RollView::columnWidth(int chord) const {
  return chord < m_roll.chords() ? width(m_roll.stepsOf(chord)) : m_step;
}

double RollView::stepAt(double x) const {
  return (x - m_names + horizontalScrollBar()->value()) / width(1);
}

int RollView::chordAt(double x) const {
  return m_roll.chordAt(static_cast<int>(std::floor(stepAt(x))));
}

std::optional<int> RollView::beatNear(const QPointF& place) const {
  if (m_roll.beats().empty() || place.y() >= kRulerHeight * m_line) return {};
  std::vector<int> lines = m_roll.beats();
  for (const int chord : m_roll.bars()) lines.push_back(m_roll.begin(chord));
  const auto distance = [&](int step) { return std::abs(xOfStep(step) - place.x()); };
  const int nearest = *std::ranges::min_element(lines, {}, distance);
  return distance(nearest) <= kReachOfLine ? std::optional(nearest) : std::nullopt;
}

QRectF RollView::lanes() const {
  const double top = kRulerHeight * m_line;
  return {0, top, static_cast<double>(viewport()->width()),
          std::max(1.0, viewport()->height() - top)};
}

/// Lanes share the height of the view, but get no taller than looks well.
double RollView::laneHeight() const {
  const int tones = m_roll.highestPitch() - m_roll.lowestPitch() + 1;
  const int count = std::max(kFewestLanes, tones + 2 * kLanesBeside);
  return std::clamp(lanes().height() / count, 2.0, kTallestLane * m_line);
}

/// Upper edge of a pitch's lane; the tones stand in the middle of the view.
double RollView::top(int pitch) const {
  const double middle = (m_roll.highestPitch() + m_roll.lowestPitch()) / 2.0;
  return lanes().center().y() + (middle - pitch - 0.5) * laneHeight();
}

QRectF RollView::headOf(const ToneRoll::Tone& tone) const {
  const double head = width(std::min(tone.steps, m_roll.stepsOf(tone.chord)));
  const double gap = std::min(1.0, head / 8);
  return {x(tone.chord) + gap, top(tone.pitch), head - 2 * gap, std::max(2.0, laneHeight() - 1)};
}

QRectF RollView::tailOf(const ToneRoll::Tone& tone) const {
  const double inset = laneHeight() * 0.3;
  return {x(tone.chord + 1) - 1, top(tone.pitch) + inset,
          width(tone.steps - m_roll.stepsOf(tone.chord)),
          std::max(1.0, laneHeight() - 1 - 2 * inset)};
}

QRect RollView::chordRect(int chord) const {
  if (chord < 0 || chord >= m_roll.chords()) return {};
  return QRectF(x(chord), 0, columnWidth(chord), viewport()->height()).toAlignedRect();
}

void RollView::updateColumn(int chord) {
  const int margin = static_cast<int>(m_line);
  if (chord >= 0) viewport()->update(chordRect(chord).adjusted(-margin, 0, margin, 0));
}

/// Leaves the view as it is when the column shows, else puts it at that share of the width.
void RollView::reveal(int chord, double place) {
  const double left = x(chord);
  const double column = columnWidth(chord);
  if (left >= m_names && left + column <= viewport()->width()) return;
  const double wanted = m_names + place * (viewport()->width() - m_names - column);
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + static_cast<int>(left - wanted));
}

QSize RollView::sizeHint() const {
  const double line = QFontMetricsF(font()).height();
  return QSizeF(40 * line, 12 * line).toSize();
}

QSize RollView::minimumSizeHint() const {
  const double line = QFontMetricsF(font()).height();
  return QSizeF(12 * line, 5 * line).toSize();
}

// ---- painting

void RollView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Shades shades(palette());
  painter.fillRect(event->rect(), shades.base);
  if (m_roll.chords() == 0) return;
  const int first = chordAt(event->rect().left());
  const int end = chordAt(event->rect().right()) + 1;
  paintLanes(painter, shades);
  paintLoop(painter, shades);
  paintBeats(painter, shades, first, end);
  paintRuler(painter, shades, first, end);
  painter.setRenderHint(QPainter::Antialiasing);
  paintTones(painter, shades, first, end);
  if (m_playing >= 0) paintColumn(painter, shades.mark, Qt::SolidLine, m_playing);
  if (m_cursor >= 0)
    paintColumn(painter, shades.text, hasFocus() ? Qt::DashLine : Qt::DotLine, m_cursor);
  if (m_dragged) painter.fillRect(QRectF(m_dragPlace, 0, 2, viewport()->height()), shades.mark);
  paintPitches(painter, shades);
}

/// Lanes of the notes with sharps and flats are darker, as on a keyboard.
void RollView::paintLanes(QPainter& painter, const Shades& shades) const {
  const double height = laneHeight();
  const QRectF area = lanes();
  const QColor dark = mixed(shades.base, shades.text, 0.04);
  for (int pitch = m_roll.lowestPitch() - kNotesPerOctave;
       pitch <= m_roll.highestPitch() + kNotesPerOctave; ++pitch) {
    const QRectF lane = QRectF(0, top(pitch), area.width(), height).intersected(area);
    if (lane.isEmpty()) continue;
    if (!isNatural(pitch)) painter.fillRect(lane, dark);
    if (pitchClass(pitch) == 0)
      painter.fillRect(QRectF(0, lane.bottom() - 1, area.width(), 1), shades.grid);
  }
}

void RollView::paintLoop(QPainter& painter, const Shades& shades) const {
  if (m_loop.first >= 0 && m_loop.last >= 0) {
    QRectF ground = lanes();
    ground.setLeft(x(m_loop.first));
    ground.setRight(x(m_loop.last + 1));
    QColor shade = shades.accent;
    shade.setAlphaF(0.14F);
    painter.fillRect(ground, shade);
  }
  if (m_loop.first >= 0) paintBracket(painter, shades, x(m_loop.first), m_line * 0.4);
  if (m_loop.last >= 0) paintBracket(painter, shades, x(m_loop.last + 1), -m_line * 0.4);
}

void RollView::paintBracket(QPainter& painter, const Shades& shades, double x, double inner) const {
  const double pen = std::max(2.0, m_line / 8);
  const QRectF area = lanes();
  painter.setPen(QPen(shades.text, pen, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  const double top = area.top() + pen / 2;
  const double bottom = area.bottom() - pen / 2;
  painter.drawPolyline(QPolygonF{{x + inner, top}, {x, top}, {x, bottom}, {x + inner, bottom}});
}

/// Numbers of bars, or of chords where there are none, at a distance that leaves them room.
void RollView::paintRuler(QPainter& painter, const Shades& shades, int first, int end) const {
  painter.setFont(font());
  painter.setPen(shades.faintText);
  const double room = kLabelDistance * m_line;
  const auto tick = [&](int chord, int number) {
    painter.fillRect(QRectF(std::round(x(chord)), kRulerHeight * m_line, 1, lanes().height()),
                     shades.grid);
    if (number > 0)
      painter.drawText(QRectF(x(chord) + 2, 0, room, kRulerHeight * m_line),
                       Qt::AlignLeft | Qt::AlignVCenter, QString::number(number));
  };
  const int margin = static_cast<int>(room / m_step) + 1;
  const auto& bars = m_roll.bars();
  if (bars.empty()) {
    const int step = roundStep(room / m_step);
    for (int number = (first - margin) / step * step; number <= end; number += step)
      if (number > 0) tick(number - 1, number);
    return;
  }
  double free = -room;
  for (auto bar = std::ranges::lower_bound(bars, first - margin * 2); bar != bars.end(); ++bar) {
    if (*bar > end) break;
    const int number = static_cast<int>(bar - bars.begin()) + m_roll.numberOfFirstBar();
    const bool hasRoom = x(*bar) >= free;
    tick(*bar, hasRoom ? number : 0);
    if (hasRoom) free = x(*bar) + room / 2;
  }
}

/// Fainter than the bars.
void RollView::paintBeats(QPainter& painter, const Shades& shades, int first, int end) const {
  const auto& beats = m_roll.beats();
  const QColor faint = mixed(shades.base, shades.grid, 0.6);
  for (auto beat = std::ranges::lower_bound(beats, m_roll.begin(first));
       beat != beats.end() && *beat <= m_roll.begin(end); ++beat)
    painter.fillRect(QRectF(std::round(xOfStep(*beat)), kRulerHeight * m_line, 1, lanes().height()),
                     faint);
}

void RollView::paintTones(QPainter& painter, const Shades& shades, int first, int end) const {
  // In narrow lanes an outline would hide the shade.
  const bool outlined = laneHeight() >= kOutlinedLane * m_line;
  const QPen outline = outlined ? QPen(mixed(shades.mark, shades.text, 0.5)) : QPen(Qt::NoPen);
  for (auto tone = m_roll.firstSounding(first); tone != m_roll.endSounding(end); ++tone) {
    if (m_roll.begin(tone->chord) + tone->steps <= m_roll.begin(first)) continue;
    painter.setPen(tone->active ? outline : QPen(shades.faintText));
    painter.setBrush(tone->active ? mixed(shades.quiet, shades.mark, tone->loudness) : shades.base);
    if (tone->steps > m_roll.stepsOf(tone->chord) && tone->active) painter.drawRect(tailOf(*tone));
    paintHead(painter, headOf(*tone), outlined, tone->active);
  }
}

void RollView::paintHead(QPainter& painter, const QRectF& head, bool outlined, bool active) const {
  const double round = std::min(3.0, laneHeight() / 4);
  if (outlined)
    painter.drawRoundedRect(head.adjusted(0.5, 0.5, -0.5, -0.5), round, round);
  else if (active)
    painter.drawRoundedRect(head, round, round);
  else  // too narrow for a hollow
    painter.drawLine(QPointF(head.left(), head.center().y()),
                     QPointF(head.center().x(), head.center().y()));
}

/// A frame, with a flag in the ruler that shows over tones of any shade.
void RollView::paintColumn(QPainter& painter, const QColor& ink, Qt::PenStyle style,
                           int chord) const {
  const double pen = std::max(1.5, m_line / (hasFocus() ? 6 : 10));
  const QRectF column(x(chord), kRulerHeight * m_line, columnWidth(chord), lanes().height());
  painter.setPen(QPen(ink, pen, style));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(column.adjusted(0, 0, 0, -pen / 2));
  const double half = m_line * 0.3;
  const QPointF tip(column.center().x(), column.top());
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(
      QPolygonF{tip, tip + QPointF(-half, -1.5 * half), tip + QPointF(half, -1.5 * half)});
}

void RollView::paintPitches(QPainter& painter, const Shades& shades) const {
  painter.fillRect(QRectF(0, 0, m_names, viewport()->height()), shades.base);
  painter.fillRect(QRectF(m_names - 1, lanes().top(), 1, lanes().height()), shades.grid);
  painter.setFont(font());
  painter.setPen(shades.faintText);
  for (int pitch = 0; pitch <= m_roll.highestPitch() + kNotesPerOctave; pitch += kNotesPerOctave) {
    const double middle = top(pitch) + laneHeight() / 2;
    if (middle < lanes().top() + m_line / 2 || middle > lanes().bottom() - m_line / 2) continue;
    painter.drawText(QRectF(0, middle - m_line / 2, m_names - m_line * 0.3, m_line),
                     Qt::AlignRight | Qt::AlignVCenter, nameOf(pitch));
  }
}

// ---- words

QString RollView::words(int chord) const {
  if (!m_song || chord < 0 || chord >= static_cast<int>(m_song->allChords().size())) return {};
  const QBChord& shown = *m_song->allChords()[static_cast<std::size_t>(chord)];
  return tr("Chord %1, %2. %3", "number, time, tones")
      .arg(chord + 1)
      .arg(timeOf(*m_song, chord), ChordWords(tuningOf(m_song)).grip(shown));
}

// ---- input

void RollView::choose(int chord) {
  if (m_roll.chords() == 0) return;
  showCursor(std::clamp(chord, 0, m_roll.chords() - 1));
  emit chordChosen(m_cursor);
}

void RollView::mouseMoveEvent(QMouseEvent* event) {
  if (!m_dragged) return QAbstractScrollArea::mouseMoveEvent(event);
  m_dragPlace = event->position().x();
  viewport()->update();
}

void RollView::mouseReleaseEvent(QMouseEvent* event) {
  if (!m_dragged) return QAbstractScrollArea::mouseReleaseEvent(event);
  const int from = *std::exchange(m_dragged, std::nullopt);
  viewport()->update();
  if (std::abs(xOfStep(from) - event->position().x()) > kReachOfLine)
    emit beatDragged(from, stepAt(event->position().x()));
}

void RollView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) m_dragged = beatNear(event->position());
  m_dragPlace = event->position().x();
  const bool inColumns =
      event->position().x() >= m_names && event->position().x() < x(m_roll.chords());
  if (event->button() == Qt::LeftButton && inColumns)
    choose(chordAt(event->position().x()));
  else
    QAbstractScrollArea::mousePressEvent(event);
}

/// The wheel goes through time, with Ctrl it zooms.
void RollView::wheelEvent(QWheelEvent* event) {
  const QPoint turned = event->angleDelta();
  if (event->modifiers() & Qt::ControlModifier) {
    if (turned.y() > 0) zoomIn();
    if (turned.y() < 0) zoomOut();
  } else {
    QWheelEvent sideways(event->position(), event->globalPosition(), event->pixelDelta(),
                         QPoint(turned.x() != 0 ? turned.x() : turned.y(), 0), event->buttons(),
                         event->modifiers(), event->phase(), event->inverted());
    QApplication::sendEvent(horizontalScrollBar(), &sideways);
  }
  event->accept();
}

void RollView::keyPressEvent(QKeyEvent* event) {
  const int page = std::max(1, static_cast<int>((viewport()->width() - m_names) / m_step));
  if (event->matches(QKeySequence::ZoomIn) || event->key() == Qt::Key_Plus) return zoomIn();
  if (event->matches(QKeySequence::ZoomOut) || event->key() == Qt::Key_Minus) return zoomOut();
  switch (event->key()) {
    case Qt::Key_Left:
      return choose(m_cursor - 1);
    case Qt::Key_Right:
      return choose(m_cursor + 1);
    case Qt::Key_PageUp:
      return choose(m_cursor - page);
    case Qt::Key_PageDown:
      return choose(m_cursor + page);
    case Qt::Key_Home:
      return choose(0);
    case Qt::Key_End:
      return choose(m_roll.chords() - 1);
    case Qt::Key_Space:
      emit playToggled();
      return;
    case Qt::Key_0:
      if (event->modifiers() & Qt::ControlModifier) return resetZoom();
      [[fallthrough]];
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

bool RollView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip || m_roll.chords() == 0)
    return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int chord = chordAt(help->pos().x());
  QToolTip::showText(help->globalPos(), words(chord), viewport(), chordRect(chord));
  return true;
}

void RollView::resizeEvent(QResizeEvent*) { remeasure(); }

void RollView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) remeasure();
}

}  // namespace korvel::ui
