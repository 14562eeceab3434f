// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/TablatureView.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Neck.h"
#include "platform/text/Utf8.h"
#include "tab/layout/PlayPosition.h"
#include "tab/text/TabText.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/views/ChordWords.h"
#include "ui/views/TablaturePainter.h"

namespace korvel::ui {
namespace {

constexpr qsizetype kColumnsOfWords = 72;

/// In rows that a narrow window shows, as far as blanks allow.
std::string wrapped(const QString& text) {
  QString rows;
  qsizetype column = 0;
  for (const QString& word : text.split(' ')) {
    const bool fits = column + word.size() < kColumnsOfWords;
    if (column > 0) rows += fits ? ' ' : '\n';
    column = (fits ? column + 1 : 0) + word.size();
    rows += word;
  }
  return rows.toStdString();
}

}  // namespace

TablatureView::TablatureView(QWidget* parent)
    : QAbstractScrollArea(parent), m_canvas(font(), Shades(palette())) {
  setAccessibleName(tr("Tablature"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  viewport()->setCursor(Qt::IBeamCursor);
  viewport()->setMouseTracking(true);
  viewport()->setBackgroundRole(QPalette::Base);
  m_family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
  remeasure();
}

TablatureView::~TablatureView() = default;

// ---- what the session says

void TablatureView::setActiveSong(QBSong* song) {
  if (song != m_song) {
    m_chord = -1;
    m_string = kStrings - 1;
    m_doubts.clear();
    select({});
    verticalScrollBar()->setValue(0);
  }
  m_song = song;
  showPlaying(-1);
  refresh();
}

void TablatureView::refresh() {
  m_grips = m_song && m_showsDiagrams ? staffGripsOf(*m_song) : std::vector<StaffGrip>();
  layOut();
  const int last = m_layout.chords() - 1;
  m_chord = std::min(m_chord, last);
  if (m_chord < 0) m_chord = m_layout.nextDrawn(-1).value_or(-1);
  if (m_selection.last > last) select({});
  m_playing = std::min(m_playing, last);
  m_loop = m_song ? loopOf(*m_song) : ChordSpan();
  updateScrollBars();
  viewport()->update();
  announce(*this);
}

void TablatureView::setDoubts(DoubtMarks marks) {
  m_doubts = std::move(marks);
  viewport()->update();
}

void TablatureView::drawPlayMode(float fraction) {
  if (m_song) showPlaying(chordAtPlayPosition(*m_song, fraction).value_or(-1));
}

void TablatureView::handleClick(double x, double y) {
  const auto chord =
      m_layout.chordAt(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
  if (chord && !m_locked) emit loopEndChosen(*chord);
}

void TablatureView::chooseLoopEnd() {
  if (m_chord >= 0 && !m_locked) emit loopEndChosen(m_chord);
}

void TablatureView::lock(bool locked) { m_locked = locked; }

void TablatureView::drawTuning(QBTuning* tuning) {
  showText(tuning ? tuning->descr() + "\n\n" + tuning->toString() : "");
}

void TablatureView::drawContent(const std::string& text) {
  showText(text);
  emit problemShown();
}

void TablatureView::drawProblem(const std::string&, const platform::UserText& told) {
  drawContent(wrapped(translated(told)));
}

void TablatureView::advise(const QString& advice) {
  QString text;
  for (const std::string& row : m_layout.rows()) text += toText(row) + '\n';
  showText(text.toStdString() + '\n' + wrapped(advice));
}

void TablatureView::sayGoodBye() { showText({}); }

void TablatureView::showText(const std::string& text) {
  m_song = nullptr;
  m_doubts.clear();
  showPlaying(-1);
  refresh();
  m_layout = TabLayout(text);
  updateScrollBars();
  emit cursorMoved(m_chord, m_string);
}

// ---- painting

void TablatureView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Shades shades(palette());
  painter.fillRect(event->rect(), shades.base);
  if (m_layout.rows().empty()) return paintPlaceholder(painter);
  painter.translate(origin());
  const TablaturePainter tab(
      m_canvas, shades,
      {m_layout, m_song, m_loop, m_selection, m_playing, m_doubts, m_grips, m_leftHanded});
  tab.paint(painter, QRectF(event->rect()).translated(-origin()));
  const QRectF cursor = cursorCells();
  if (cursor.isEmpty()) return;
  hasFocus() ? tab.fillCursor(painter, cursor, tabFont()) : tab.frameCursor(painter, cursor);
}

void TablatureView::paintPlaceholder(QPainter& painter) const {
  QFont large = font();
  if (large.pointSizeF() > 0) large.setPointSizeF(large.pointSizeF() * 1.3);
  painter.setFont(large);
  painter.setPen(Shades(palette()).faintText);
  painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, placeholder());
}

QString TablatureView::placeholder() const {
  return m_song ? tr("This song has no chords. The key Insert puts in the first one.")
                : m_placeholder;
}

QString TablatureView::spokenText() const {
  if (m_layout.rows().empty()) return placeholder();
  return m_song ? placeText() : toText(textOf(m_layout)).simplified();
}

void TablatureView::setPlaceholderText(const QString& text) {
  m_placeholder = text;
  viewport()->update();
}

// ---- changes from outside

void TablatureView::setTabFamily(const QString& family) {
  m_family = family;
  remeasure();
}

void TablatureView::showDiagrams(bool shown) {
  if (shown == m_showsDiagrams) return;
  m_showsDiagrams = shown;
  const Top before = top();
  refresh();
  showTop(before);
}

void TablatureView::setLeftHanded(bool leftHanded) {
  m_leftHanded = leftHanded;
  viewport()->update();
}

/// A scroll bar that comes or goes with it resizes the view in the middle.
void TablatureView::resizeEvent(QResizeEvent*) {
  const bool isInner = std::exchange(m_resizing, true);
  const Top before = top();
  fillWidth();
  updateScrollBars();
  if (isInner) return;
  m_resizing = false;
  updateScrollBars();
  showTop(before);
}

void TablatureView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
      event->type() == QEvent::StyleChange)
    remeasure();
}

void TablatureView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  updateChord(m_chord);
}

void TablatureView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  updateChord(m_chord);
}

bool TablatureView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !m_song) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const auto chord = chordUnder(help->pos());
  const auto& chords = m_song->allChords();
  if (!chord || *chord >= static_cast<int>(chords.size())) {
    QToolTip::hideText();
    return true;
  }
  const QBChord& under = *chords[static_cast<std::size_t>(*chord)];
  QString words = isOnRuler(help->pos())
                      ? tr("Click to move the nearer end of the loop here, drag to set both")
                      : ChordWords(tuningOf(m_song)).grip(under);
  const auto mark = m_doubts.find(*chord);
  if (mark != m_doubts.end() && !mark->second.words.isEmpty()) words += '\n' + mark->second.words;
  QToolTip::showText(help->globalPos(), words, viewport(), chordRect(*chord));
  return true;
}

}  // namespace korvel::ui
