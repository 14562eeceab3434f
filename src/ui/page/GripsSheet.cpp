// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/GripsSheet.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

constexpr int kSpace = 12;  ///< Pixels around it.
constexpr int kFrame = 4;   ///< Around a grip at the cursor.

}  // namespace

GripsSheet::GripsSheet(const SongPage& page, QWidget* parent) : QWidget(parent), m_page(page) {
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setAccessibleName(tr("Grips"));
  setFocusPolicy(Qt::StrongFocus);
  layOut();
}

void GripsSheet::setPage(const SongPage& page) {
  m_page = page;
  layOut();
  if (!atCursor()) m_other = -1;
  if (!atCursor()) m_grip = 0;
  announce(*this);
  emit cursorMoved();
}

void GripsSheet::layOut() {
  m_sheet = PageSheet(m_page, font(), std::max(1, width() - 2 * kSpace), PageSheet::Parts::grips);
  setMinimumHeight(static_cast<int>(std::ceil(m_sheet.height())) + 2 * kSpace);
  update();
}

// ---- the cursor

const PageSheet::Grip* GripsSheet::at(int grip, int other) const {
  const auto& all = m_sheet.grips();
  const auto found = std::ranges::find_if(
      all, [&](const PageSheet::Grip& each) { return each.grip == grip && each.other == other; });
  return found == all.end() ? nullptr : &*found;
}

int GripsSheet::grip() const { return atCursor() ? m_grip : -1; }

ChordShape GripsSheet::shape() const { return shapeOf(*atCursor()); }

ChordShape GripsSheet::shapeOf(const PageSheet::Grip& place) const {
  const PageGrip& grip = m_page.grips.at(static_cast<std::size_t>(place.grip));
  ChordShape shape =
      place.other < 0 ? grip.frets : grip.others.at(static_cast<std::size_t>(place.other));
  if (m_page.leftHanded) std::ranges::reverse(shape);
  return shape;
}

QPoint GripsSheet::placeOf(int grip, int other) const {
  const PageSheet::Grip* place = at(grip, other);
  return place ? place->place.center().toPoint() + QPoint(kSpace, kSpace) : QPoint();
}

QRect GripsSheet::cursorRect() const {
  const PageSheet::Grip* place = atCursor();
  if (!place) return {};
  const QRect pixels = place->place.toAlignedRect().translated(kSpace, kSpace);
  return pixels.adjusted(-kFrame, -kFrame, kFrame, kFrame);
}

QString GripsSheet::spokenText() const {
  const PageSheet::Grip* place = atCursor();
  if (!place) return tr("No chord of this song has a name");
  const PageGrip& grip = m_page.grips.at(static_cast<std::size_t>(m_grip));
  const QString name = toText(grip.name);
  const QString frets = toText(shorthandOf(shapeOf(*place)));
  return m_other < 0 ? tr("%1: %2, on the page", "a chord and its frets").arg(name, frets)
                     : tr("%1: %2, other %3 of %4")
                           .arg(name, frets)
                           .arg(m_other + 1)
                           .arg(grip.others.size());
}

void GripsSheet::moveTo(const PageSheet::Grip* place) {
  if (!place) return;
  m_grip = place->grip;
  m_other = place->other;
  update();
  announce(*this);
  emit cursorMoved();
}

void GripsSheet::choose() {
  if (atCursor()) emit chosen(m_grip, m_other);
}

bool GripsSheet::moveByKey(int key) {
  const auto nearest = [this](int grip) {
    int other = m_other;
    while (other >= 0 && !at(grip, other)) --other;
    return at(grip, other);
  };
  switch (key) {
    case Qt::Key_Left:
      moveTo(at(m_grip, m_other - 1));
      return true;
    case Qt::Key_Right:
      moveTo(at(m_grip, m_other + 1));
      return true;
    case Qt::Key_Up:
      moveTo(nearest(m_grip - 1));
      return true;
    case Qt::Key_Down:
      moveTo(nearest(m_grip + 1));
      return true;
    case Qt::Key_Home:
      moveTo(at(0, -1));
      return true;
    case Qt::Key_End:
      moveTo(at(static_cast<int>(std::ssize(m_page.grips)) - 1, -1));
      return true;
    default:
      return false;
  }
}

// ---- events

void GripsSheet::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const Shades shades(palette());
  painter.save();
  painter.translate(kSpace, kSpace);
  m_sheet.paint(painter, shades, event->rect().top() - kSpace, event->rect().bottom() - kSpace);
  painter.restore();
  if (!atCursor()) return;
  painter.setPen(hasFocus() ? QPen(shades.accent, 2) : QPen(shades.faintText, 1, Qt::DotLine));
  painter.drawRect(cursorRect().adjusted(1, 1, -1, -1));
}

void GripsSheet::resizeEvent(QResizeEvent*) {
  layOut();
  // Fewer others may fit.
  if (!atCursor()) moveTo(at(m_grip, -1));
}

void GripsSheet::mousePressEvent(QMouseEvent* event) {
  const QPointF place = event->position() - QPointF(kSpace, kSpace);
  for (const PageSheet::Grip& grip : m_sheet.grips()) {
    if (!grip.place.contains(place)) continue;
    moveTo(&grip);
    return choose();
  }
  QWidget::mousePressEvent(event);
}

void GripsSheet::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  const int key = event->key();
  if (isPlain && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space))
    return choose();
  if (!isPlain || !moveByKey(key)) QWidget::keyPressEvent(event);
}

void GripsSheet::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void GripsSheet::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace korvel::ui
