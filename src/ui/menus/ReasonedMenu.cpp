// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/ReasonedMenu.h"

namespace korvel::ui {

ReasonedMenu::ReasonedMenu(const QString& title, QWidget* parent)
    : QMenu(title, parent), m_reason(addAction(QString())) {
  m_reason->setEnabled(false);
  m_reason->setVisible(false);
  connect(this, &QMenu::aboutToHide, this, [this] { enableAll(true); });
}

void ReasonedMenu::showReason(const QString& why) {
  enableAll(why.isEmpty());
  m_reason->setText(QString(why).replace('&', "&&"));
  m_reason->setVisible(!why.isEmpty());
}

void ReasonedMenu::enableAll(bool enabled) {
  for (QAction* action : actions()) action->setEnabled(enabled && action != m_reason);
}

}  // namespace korvel::ui
