// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFont>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "model/songs/QBSong.h"
#include "ui/desktop/Text.h"
#include "ui/views/TablatureView.h"

namespace korvel::ui {
namespace {

constexpr double kMarginColumns = 1;
constexpr double kMarginRows = 0.5;
constexpr int kFewestColumns = 40;
constexpr int kMostColumns = 400;
/// Strings are drawn so far beyond the width of a system.
constexpr int kColumnsBeyondWidth = 4;

QRectF withMargin(const QRectF& rect, double margin) {
  return rect.adjusted(-margin, -margin, margin, margin);
}

}  // namespace

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

}  // namespace korvel::ui
