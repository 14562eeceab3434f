// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/FocusRing.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>

#include "ui/views/Shades.h"
#include "ui/views/SpokenView.h"

namespace korvel::ui {
namespace {

constexpr int kDistance = 2;

bool isByKeys(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

/// A window that becomes active again, or a menu that closes, leaves the focus where it was.
bool isReturn(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

}  // namespace

FocusRing::FocusRing(QWidget& control) : QFocusFrame(control.window()), m_control(&control) {
  control.installEventFilter(this);
  control.window()->installEventFilter(this);
  connect(&control, &QObject::destroyed, this, &QObject::deleteLater);
  place();
}

void FocusRing::follow(QWidget& control, Qt::FocusReason reason) {
  static QPointer<FocusRing> shown;
  if (shown && isReturn(reason) && shown->m_control == &control) return shown->place();
  const bool isWanted = isByKeys(reason) || (shown && reason == Qt::OtherFocusReason);
  delete shown;
  if (isWanted && !control.isWindow() && !dynamic_cast<SpokenView*>(&control))
    shown = new FocusRing(control);
}

void FocusRing::handOver(QWidget& from, QWidget& to) {
  to.setEnabled(true);
  if (from.hasFocus()) to.setFocus();
  from.setEnabled(false);
}

/// Around the control, or within it at the edge of the window.
void FocusRing::place() {
  if (!m_control || !m_control->isVisible()) return hide();
  const QRect inWindow(m_control->mapTo(m_control->window(), QPoint()), m_control->size());
  setGeometry(inWindow.adjusted(-kDistance, -kDistance, kDistance, kDistance)
                  .intersected(m_control->window()->rect()));
  raise();
  show();
}

void FocusRing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(QPen(Shades(palette()).mark, kDistance));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
  const bool isMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize ||
                       event->type() == QEvent::LayoutRequest;
  if (isMoved && isVisible()) QTimer::singleShot(0, this, &FocusRing::place);  // all is laid out
  if (watched == m_control && (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide))
    hide();
  return false;
}

}  // namespace korvel::ui
