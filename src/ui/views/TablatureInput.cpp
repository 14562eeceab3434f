// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "export/score/SongScore.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "tab/text/TabText.h"
#include "ui/desktop/Text.h"
#include "ui/views/ChordWords.h"
#include "ui/views/TablatureView.h"
#include "workflow/exporting/ScoreFile.h"

namespace korvel::ui {
namespace {

constexpr int kSmallestZoom = 30;
constexpr int kLargestZoom = 500;
constexpr int kZoomStep = 10;

int wheelSteps(const QWheelEvent& event) {
  return event.angleDelta().y() / QWheelEvent::DefaultDeltasPerStep;
}

/// What programs of notation know it by.
constexpr auto kMusicXml = "application/vnd.recordare.musicxml+xml";

/// The lines of a text in black on white, twice as fine as on the screen. None of a text that is
/// larger than a picture should be.
QImage pictureOf(const QString& text, const QFont& font) {
  constexpr int kFineness = 2;
  constexpr int kMargin = 8;
  constexpr int kLargestSide = 8000;
  constexpr int kLargestArea = 4000000;
  const QFontMetrics metrics(font);
  const QStringList lines = text.split('\n');
  int width = 0;
  for (const QString& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
  const QSize size(width + 2 * kMargin,
                   metrics.height() * static_cast<int>(lines.size()) + 2 * kMargin);
  if (width == 0 || std::max(size.width(), size.height()) > kLargestSide) return {};
  if (size.width() * size.height() > kLargestArea) return {};
  QImage picture(size * kFineness, QImage::Format_RGB32);
  picture.setDevicePixelRatio(kFineness);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setFont(font);
  painter.setPen(Qt::black);
  int y = kMargin + metrics.ascent();
  for (const QString& line : lines) {
    painter.drawText(kMargin, y, line);
    y += metrics.height();
  }
  return picture;
}

}  // namespace

// ---- zoom

void TablatureView::setZoom(int percent) {
  percent = std::clamp(percent, kSmallestZoom, kLargestZoom);
  if (percent == m_zoom) return;
  m_zoom = percent;
  remeasure();
  emit zoomChanged(percent);
}

void TablatureView::zoomIn() { setZoom(m_zoom + kZoomStep); }

void TablatureView::zoomOut() { setZoom(m_zoom - kZoomStep); }

void TablatureView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  setZoom(m_zoom + wheelSteps(*event) * kZoomStep);
  event->accept();
}

// ---- selection

void TablatureView::select(ChordSpan span) {
  m_selection = span;
  if (span.first < 0) m_anchor = -1;
  viewport()->update();
  emit selectionChanged(span.first >= 0);
}

void TablatureView::selectAll() {
  if (m_layout.chords() == 0) return;
  m_anchor = 0;
  select({0, m_layout.chords() - 1});
}

void TablatureView::selectNone() {
  if (m_selection.first >= 0) select({});
}

void TablatureView::selectChords(int first, int last) {
  moveCursor(first, m_string);
  m_anchor = first;
  select({first, last});
}

QString TablatureView::selectedText() const {
  const bool all = m_selection.first <= 0 && m_selection.last == m_layout.chords() - 1;
  return toText(all ? textOf(m_layout)
                    : textOfChords(m_layout, m_selection.first, m_selection.last));
}

/// The whole text when nothing is selected: as text, as a picture, and the whole song as MusicXML.
void TablatureView::copy() const {
  auto* copied = new QMimeData;
  const QString text = selectedText();
  copied->setText(text);
  if (const QImage picture = pictureOf(text, tabFont()); !picture.isNull())
    copied->setImageData(picture);
  const int last = m_layout.chords() - 1;
  const bool isWhole =
      m_selection.first <= 0 && (m_selection.first < 0 || m_selection.last == last);
  if (m_song && isWhole && last >= 0)
    copied->setData(kMusicXml, QByteArray::fromStdString(musicXmlOf(scoreOf(*m_song))));
  QApplication::clipboard()->setMimeData(copied);
}

/// For the middle mouse button, where the desktop has that.
void TablatureView::offerSelection() const {
  QClipboard& clipboard = *QApplication::clipboard();
  if (clipboard.supportsSelection()) clipboard.setText(selectedText(), QClipboard::Selection);
}

// ---- cursor

QString TablatureView::placeText() const {
  if (!m_song) return {};
  QString words = ChordWords(tuningOf(m_song)).place(*m_song, m_chord, m_string);
  if (m_chord >= 0 && m_chord == m_loop.first) words += tr(", loop begins");
  if (m_chord >= 0 && m_chord == m_loop.last) words += tr(", loop ends");
  if (const auto mark = m_doubts.find(m_chord); mark != m_doubts.end())
    words += mark->second.words.isEmpty() ? tr(", doubtful")
                                          : tr(", doubtful: %1").arg(mark->second.words);
  return words;
}

void TablatureView::moveCursor(int chord, int string) {
  if (chord < 0 || chord >= m_layout.chords()) return;
  updateChord(m_chord);
  m_chord = chord;
  m_string = std::clamp(string, 0, kStrings - 1);
  updateChord(m_chord);
  reveal(cursorCells());
  announce(*this);
  emit cursorMoved(m_chord, m_string);
}

bool TablatureView::findNext(const QString& name) { return find(name, SearchDirection::forward); }

bool TablatureView::findPrevious(const QString& name) {
  return find(name, SearchDirection::backward);
}

bool TablatureView::find(const QString& name, SearchDirection direction) {
  if (!m_song) return false;
  const auto found = findChord(*m_song, name.trimmed().toStdString(), m_chord, direction);
  if (found) moveTo(found, m_string, false);
  return found.has_value();
}

/// With `selecting`, what lies between the anchor and the cursor becomes the selection.
void TablatureView::moveTo(std::optional<int> chord, int string, bool selecting) {
  if (!chord) return;
  if (selecting && m_anchor < 0) m_anchor = m_chord;
  moveCursor(*chord, string);
  if (selecting)
    select({std::min(m_anchor, m_chord), std::max(m_anchor, m_chord)});
  else
    selectNone();
}

// ---- mouse

void TablatureView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  m_pressed = event->pos();
}

/// Says that the ruler does something else than the strings below it.
void TablatureView::showPointer(const QPoint& position) {
  const bool onRuler = isOnRuler(position) && chordUnder(position);
  viewport()->setCursor(onRuler ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void TablatureView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) showPointer(event->pos());
  if (!m_pressed || !(event->buttons() & Qt::LeftButton)) return;
  const bool dragged =
      (event->pos() - *m_pressed).manhattanLength() >= QApplication::startDragDistance();
  const auto chord = chordUnder(event->pos());
  if (!dragged || !chord) return;
  if (!std::exchange(m_dragging, true)) m_anchor = chordUnder(*m_pressed).value_or(*chord);
  moveTo(chord, m_string, true);
}

void TablatureView::mouseReleaseEvent(QMouseEvent* event) {
  const auto pressed = std::exchange(m_pressed, std::nullopt);
  if (!pressed || event->button() != Qt::LeftButton) return;
  if (std::exchange(m_dragging, false)) return endDrag(*pressed);
  const auto chord = chordUnder(event->pos());
  if (!chord) return selectNone();
  const QPointF cell = toCells(event->pos());
  const int row = static_cast<int>(std::floor(cell.y()));
  moveTo(chord, stringAt(*m_layout.systemAt(row), row).value_or(m_string), false);
  const Qt::KeyboardModifiers keys = event->modifiers();
  const bool listens = keys & (Qt::ControlModifier | Qt::AltModifier);
  if (!listens && (keys & Qt::ShiftModifier || isOnRuler(event->pos())))
    emit clicked(cell.x(), cell.y());
  else
    emit chordClicked(*chord, stringOfNoteUnder(event->pos()), keys);
}

/// Selects the chord, to which the first click has moved the cursor.
void TablatureView::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto chord = chordUnder(event->pos());
  const bool isOfText = event->button() == Qt::LeftButton && !isOnRuler(event->pos());
  if (!chord || !isOfText) return QAbstractScrollArea::mouseDoubleClickEvent(event);
  selectChords(*chord, *chord);
}

/// What was dragged over is selected, and it is what plays; along the ruler it only plays.
void TablatureView::endDrag(const QPoint& began) {
  const ChordSpan dragged = m_selection;
  offerSelection();
  if (isOnRuler(began)) selectNone();
  if (dragged.first >= 0 && !m_locked) emit loopDragged(dragged.first, dragged.last);
}

/// What is selected stays so when the menu is asked for on it.
void TablatureView::contextMenuEvent(QContextMenuEvent* event) {
  if (!m_song) return;
  if (event->reason() == QContextMenuEvent::Keyboard)
    return emit menuWanted(viewport()->mapToGlobal(chordRect(m_chord).center()));
  const auto chord = chordUnder(event->pos());
  if (chord && !m_selection.contains(*chord)) {
    const int row = static_cast<int>(std::floor(toCells(event->pos()).y()));
    moveTo(chord, stringAt(*m_layout.systemAt(row), row).value_or(m_string), false);
  }
  emit menuWanted(event->globalPos());
}

}  // namespace korvel::ui
