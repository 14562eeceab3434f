// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/WordsLine.h"

#include <QKeyEvent>

namespace korvel::ui {

/// Before Tab goes to the next control.
bool WordsLine::event(QEvent* event) {
  if (event->type() == QEvent::FocusOut) emit left();
  if (event->type() == QEvent::KeyPress && endByKey(static_cast<QKeyEvent*>(event)->key()))
    return true;
  return QLineEdit::event(event);
}

bool WordsLine::endByKey(int key) {
  if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter)
    emit ended(key != Qt::Key_Escape);
  else if (key == Qt::Key_Tab)
    emit nextWanted();
  else
    return false;
  return true;
}

}  // namespace korvel::ui
