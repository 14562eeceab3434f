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

constexpr double kMarginColumns = 1;
constexpr double kMarginRows = 0.5;
constexpr int kFewestColumns = 40;
constexpr int kMostColumns = 400;
/// Strings are drawn so far beyond the width of a system.
constexpr int kColumnsBeyondWidth = 4;
constexpr qsizetype kColumnsOfWords = 72;

QRectF withMargin(const QRectF& rect, double margin) {
  return rect.adjusted(-margin, -margin, margin, margin);
}

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

// ---- geometry

QFont TablatureView::tabFont() const {
  QFont font(m_family);
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  const double scale = m_zoom / 100.0;
  if (this->font().pointSizeF() > 0)
    font.setPointSizeF(this->font().pointSizeF() * scale);
  else
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(this->font().pixelSize() * scale))));
  return font;
}

void TablatureView::remeasure() {
  const Top before = top();
  m_canvas = TabCanvas(tabFont(), Shades(palette()));
  fillWidth();
  updateScrollBars();
  showTop(before);
  viewport()->update();
}

/// What a system may have so that it fits into the view, whether that has a scroll bar or not.
int TablatureView::columnsOfView() const {
  const QScrollBar& bar = *verticalScrollBar();
  const int width = viewport()->width() - (bar.isVisible() ? 0 : bar.sizeHint().width());
  const double columns = width / m_canvas.cell().width() - 2 * kMarginColumns;
  return std::clamp(static_cast<int>(columns) - kColumnsBeyondWidth, kFewestColumns, kMostColumns);
}

void TablatureView::fillWidth() {
  if (!m_song || columnsOfView() == m_width) return;
  layOut();
}

void TablatureView::layOut() {
  m_width = columnsOfView();
  m_layout = m_song ? TabLayout(*m_song, m_width) : TabLayout();
  if (!m_grips.empty()) m_layout.makeRoom(TabCanvas::kRowsOfGrips);
}

TablatureView::Top TablatureView::top() const {
  const double row = verticalScrollBar()->value() / m_canvas.cell().height();
  const auto cursor = m_layout.nearPlace(m_chord);
  const double below = cursor ? cursor->y - row : 0;
  if (cursor && below >= 0 && below * m_canvas.cell().height() < viewport()->height())
    return {m_chord, -below};
  const TabLayout::System* system = m_layout.systemAt(static_cast<int>(row));
  if (!system || m_layout.begin(*system) == m_layout.end(*system)) return {-1, row};
  return {m_layout.begin(*system)->chord, row - system->top};
}

void TablatureView::showTop(const Top& top) {
  const auto place = m_layout.nearPlace(top.chord);
  const double row = (place ? place->y : 0) + top.rows;
  verticalScrollBar()->setValue(static_cast<int>(row * m_canvas.cell().height()));
  if (place && top.chord == m_chord) reveal(cursorCells());
}

void TablatureView::updateScrollBars() {
  const QSizeF cell = m_canvas.cell();
  const double width = (m_layout.columns() + 2 * kMarginColumns) * cell.width();
  const double height =
      (static_cast<double>(m_layout.rows().size()) + 2 * kMarginRows) * cell.height();
  const QSize page = viewport()->size();
  const auto fit = [](QScrollBar& bar, double size, int visible, double step) {
    bar.setRange(0, std::max(0, static_cast<int>(std::ceil(size)) - visible));
    bar.setPageStep(visible);
    bar.setSingleStep(static_cast<int>(step));
  };
  fit(*horizontalScrollBar(), width, page.width(), 4 * cell.width());
  fit(*verticalScrollBar(), height, page.height(), 3 * cell.height());
}

/// Of the text, in the viewport.
QPointF TablatureView::origin() const {
  const QSizeF cell = m_canvas.cell();
  return {std::round(kMarginColumns * cell.width()) - horizontalScrollBar()->value(),
          std::round(kMarginRows * cell.height()) - verticalScrollBar()->value()};
}

QPointF TablatureView::toCells(const QPoint& position) const {
  const QPointF inText = position - origin();
  return {inText.x() / m_canvas.cell().width(), inText.y() / m_canvas.cell().height()};
}

std::optional<int> TablatureView::chordUnder(const QPoint& position) const {
  const QPointF cell = toCells(position);
  return m_layout.chordAt(static_cast<int>(std::floor(cell.x())),
                          static_cast<int>(std::floor(cell.y())));
}

/// The row above the strings, in which the names of the chords stand.
bool TablatureView::isOnRuler(const QPoint& position) const {
  const int row = static_cast<int>(std::floor(toCells(position).y()));
  const TabLayout::System* system = m_layout.systemAt(row);
  return system && row == system->first;
}

/// -1 where no fret stands.
int TablatureView::stringOfNoteUnder(const QPoint& position) const {
  const QPointF cell = toCells(position);
  const int row = static_cast<int>(std::floor(cell.y()));
  const auto chord = chordUnder(position);
  const TabLayout::Place* place = chord ? m_layout.placeOf(*chord) : nullptr;
  if (!place || cell.x() >= place->x + TabCanvas::kFretColumns) return -1;
  const QString text = toText(m_layout.rows()[static_cast<std::size_t>(row)]);
  const QString fret = text.mid(place->x, TabCanvas::kFretColumns);
  const bool isNote = std::ranges::any_of(fret, [](QChar sign) { return sign.isDigit(); });
  return isNote ? stringAt(*m_layout.systemAt(row), row).value_or(-1) : -1;
}

QRectF TablatureView::cursorCells() const {
  const auto place = m_layout.nearPlace(m_chord);
  if (!place) return {};
  const int columns = m_layout.placeOf(m_chord) ? TabCanvas::kFretColumns : 1;
  return m_canvas.cells(place->x, rowOfString(place->y, m_string), columns, 1);
}

QRect TablatureView::chordRect(int chord) const {
  const auto place = m_layout.nearPlace(chord);
  return place ? m_canvas.chordCells(*place).translated(origin()).toAlignedRect() : QRect();
}

/// Scrolls no further than needed.
void TablatureView::reveal(const QRectF& cells) {
  const QRectF seen = withMargin(cells, m_canvas.cell().height()).translated(origin());
  const auto move = [](QScrollBar& bar, double first, double last, double size) {
    if (last > size) bar.setValue(bar.value() + static_cast<int>(std::ceil(last - size)));
    if (first < 0) bar.setValue(bar.value() + static_cast<int>(std::floor(first)));
  };
  move(*horizontalScrollBar(), seen.left(), seen.right(), viewport()->width());
  move(*verticalScrollBar(), seen.top(), seen.bottom(), viewport()->height());
}

/// Brings the chord's system to the upper part of the view, so that the next ones show as well.
void TablatureView::follow(int chord) {
  const auto place = m_layout.nearPlace(chord);
  if (!place) return;
  const QRectF marked = m_canvas.chordCells(*place).translated(origin());
  const QRectF view = viewport()->rect();
  if (marked.top() < 0 || marked.bottom() > view.bottom())
    verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                  static_cast<int>(marked.top() - view.height() / 8));
  reveal(m_canvas.chordCells(*place));
}

void TablatureView::updateChord(int chord) {
  if (const auto place = m_layout.nearPlace(chord))
    viewport()->update(withMargin(m_canvas.chordCells(*place), m_canvas.cell().width())
                           .translated(origin())
                           .toAlignedRect());
}

void TablatureView::showPlaying(int chord) {
  if (chord == m_playing) return;
  const auto before = m_layout.nearPlace(m_playing);
  const auto now = m_layout.nearPlace(chord);
  updateChord(m_playing);
  m_playing = chord;
  updateChord(m_playing);
  // Within a system the user may look elsewhere.
  if (now && (!before || before->y != now->y)) follow(chord);
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
