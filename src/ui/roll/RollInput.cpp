// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keys of the roll.
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/songs/QBSong.h"
#include "ui/roll/RollView.h"

namespace korvel::ui {

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
  if (std::abs(m_scale.xOfStep(from) - event->position().x()) > RollScale::kReachOfLine)
    emit beatDragged(from, m_scale.stepAt(event->position().x()));
}

void RollView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) m_dragged = m_scale.beatNear(event->position());
  m_dragPlace = event->position().x();
  const bool inColumns = event->position().x() >= m_scale.names() &&
                         event->position().x() < m_scale.x(m_roll.chords());
  if (event->button() == Qt::LeftButton && inColumns)
    choose(m_scale.chordAt(event->position().x()));
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
  const int page = std::max(1, static_cast<int>(m_scale.widthBesideNames() / m_scale.step()));
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
  const int chord = m_scale.chordAt(help->pos().x());
  QToolTip::showText(help->globalPos(), words(chord), viewport(), chordRect(chord));
  return true;
}

}  // namespace korvel::ui
