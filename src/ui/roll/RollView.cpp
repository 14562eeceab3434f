// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollView.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "model/songs/QBSong.h"
#include "ui/roll/RollPainter.h"

namespace korvel::ui {
namespace {

constexpr double kSmallestRoll = 20;  ///< But for longer songs.
constexpr double kLargestRoll = 20000;
constexpr double kZoomFactor = 1.25;
constexpr double kMostOfWave = 0.2;  ///< Of the view's height.

}  // namespace

RollView::RollView(QWidget* parent) : QAbstractScrollArea(parent) {
  setAccessibleName(tr("Roll"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setMouseTracking(true);
  connect(&m_backdrop, &SoundBackdrop::changed, this, &RollView::remeasure);
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
  m_backdrop.setSong(m_song);
  m_notes = {};
  m_spot.reset();
  m_chosen.clear();
  m_gesture = {};  // what the button went down on may be gone
  m_loop = m_song ? loopOf(*m_song) : ChordSpan();
  m_playing = std::min(m_playing, m_roll.chords() - 1);
  m_cursor = std::min(m_cursor, m_roll.chords() - 1);
  remeasure();
  announce(*this);
}

void RollView::setNotes(const SongNotes& notes) {
  if (!m_song) return;
  m_notes = RollNotes::of(*m_song, notes, m_roll, m_backdrop.time());
  viewport()->update();
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
  m_spot.reset();
  m_cursor = chord;
  updateColumn(m_cursor);
  if (chord >= 0) reveal(chord, 0.5);
  announce(*this);
}

void RollView::setZoom(double percent) {
  zoomAround(percent, (m_scale.names() + viewport()->width()) / 2);
}

/// What is at x stays there.
void RollView::zoomAround(double percent, double x) {
  const double least = std::min(kSmallestRoll, m_scale.zoomOfWhole());
  const double most = std::min(kLargestRoll, m_scale.zoomOfPixels());
  percent = std::clamp(percent, std::clamp(least, 1e-3, most), most);
  if (percent == m_zoom) return;
  const double step = m_scale.stepAt(x);
  m_zoom = percent;
  remeasure();
  horizontalScrollBar()->setValue(
      static_cast<int>(std::lround(step * m_scale.width(1) + m_scale.names() - x)));
  emit zoomChanged(percent);
}

void RollView::zoomIn() { setZoom(m_zoom * kZoomFactor); }

void RollView::zoomOut() { setZoom(m_zoom / kZoomFactor); }

// ---- geometry

void RollView::remeasure() {
  m_scale.setFont(font());
  m_scale.setZoom(m_zoom);
  m_scale.setWaveHeight(std::ceil(
      std::min(m_backdrop.waveLines() * m_scale.line(), viewport()->height() * kMostOfWave)));
  m_scale.setViewport(viewport()->size());
  QScrollBar& bar = *horizontalScrollBar();
  bar.setRange(0, std::max(0, m_scale.wholeWidth() - viewport()->width()));
  bar.setPageStep(std::max(1, m_scale.widthBesideNames()));
  bar.setSingleStep(std::clamp(static_cast<int>(4 * m_scale.step()), 1, bar.pageStep()));
  viewport()->update();
}

void RollView::scrollContentsBy(int, int) {
  m_scale.setOffset(horizontalScrollBar()->value());
  viewport()->update();
}

void RollView::updateColumn(int chord) {
  const int margin = static_cast<int>(m_scale.line());
  if (chord >= 0) viewport()->update(chordRect(chord).adjusted(-margin, 0, margin, 0));
}

/// Leaves the view as it is when the column shows, else puts it at that share of the width.
void RollView::reveal(int chord, double place) {
  const double left = m_scale.x(chord);
  const double column = m_scale.columnWidth(chord);
  if (left >= m_scale.names() && left + column <= viewport()->width()) return;
  const double wanted = m_scale.names() + place * (viewport()->width() - m_scale.names() - column);
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

void RollView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  RollPainter(m_roll, m_notes, m_scale, m_backdrop, palette(), font())
      .paint(painter, event->rect(), marks());
}

RollPainter::Marks RollView::marks() const {
  RollPainter::Marks marks{.loop = m_loop,
                           .playing = m_playing,
                           .cursor = m_cursor,
                           .focused = hasFocus(),
                           .chosen = m_chosen,
                           .drawn = draggedRects()};
  if (m_gesture.doing == Doing::beat) marks.dragged = m_gesture.now.x();
  if (m_gesture.doing == Doing::band)
    marks.band = QRectF(m_gesture.from, m_gesture.now).normalized();
  if (m_spot) marks.spot = rectOf(*m_spot);
  return marks;
}

QRect RollView::toneRect(const ToneIndex& place) const {
  for (const ToneRoll::Tone& tone : m_roll.tones())
    if (tone.chord == place.chord && tone.string == place.string)
      return hits().rectOf(tone).toAlignedRect();
  return {};
}

QRect RollView::candidateRect(std::size_t candidate) const {
  return hits().rectOf(m_notes.candidates.at(candidate)).toAlignedRect();
}

void RollView::resizeEvent(QResizeEvent*) { remeasure(); }

void RollView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) remeasure();
}

}  // namespace korvel::ui
