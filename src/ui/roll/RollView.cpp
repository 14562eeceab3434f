// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollView.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"
#include "music/ChordStep.h"
#include "ui/roll/RollPainter.h"
#include "ui/views/ChordWords.h"

namespace korvel::ui {
namespace {

constexpr int kSmallestZoom = 20;
constexpr int kLargestZoom = 800;
constexpr double kZoomFactor = 1.25;

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
  const int middle = m_scale.chordAt(viewport()->width() / 2.0);
  m_zoom = percent;
  remeasure();
  const double place = m_scale.width(1) * (m_roll.begin(middle) + m_roll.stepsOf(middle) / 2.0);
  horizontalScrollBar()->setValue(
      static_cast<int>(place + m_scale.names() - viewport()->width() / 2.0));
  emit zoomChanged(percent);
}

void RollView::zoomIn() { setZoom(static_cast<int>(std::ceil(m_zoom * kZoomFactor))); }

void RollView::zoomOut() { setZoom(static_cast<int>(m_zoom / kZoomFactor)); }

// ---- geometry

void RollView::remeasure() {
  m_scale.setFont(font());
  m_scale.setZoom(m_zoom);
  m_scale.setViewport(viewport()->size());
  QScrollBar& bar = *horizontalScrollBar();
  bar.setRange(0, std::max(0, m_scale.wholeWidth() - viewport()->width()));
  bar.setPageStep(std::max(1, m_scale.widthBesideNames()));
  bar.setSingleStep(static_cast<int>(4 * m_scale.step()));
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
  RollPainter::Marks marks{
      .loop = m_loop, .playing = m_playing, .cursor = m_cursor, .focused = hasFocus()};
  if (m_dragged) marks.dragged = m_dragPlace;
  RollPainter(m_roll, m_scale, palette(), font()).paint(painter, event->rect(), marks);
}

// ---- words

QString RollView::words(int chord) const {
  if (!m_song || chord < 0 || chord >= static_cast<int>(m_song->allChords().size())) return {};
  const QBChord& shown = *m_song->allChords()[static_cast<std::size_t>(chord)];
  return tr("Chord %1, %2. %3", "number, time, tones")
      .arg(chord + 1)
      .arg(timeOf(*m_song, chord), ChordWords(tuningOf(m_song)).grip(shown));
}

void RollView::resizeEvent(QResizeEvent*) { remeasure(); }

void RollView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) remeasure();
}

}  // namespace korvel::ui
