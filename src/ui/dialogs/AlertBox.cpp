// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/AlertBox.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdlib>

#include "ui/desktop/Translated.h"

namespace korvel::ui {

void AlertBox::show(const platform::UserText& text) {
  QMessageBox box(QMessageBox::Critical, QApplication::applicationDisplayName(), translated(text),
                  QMessageBox::Ok, QApplication::activeWindow());
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

int AlertBox::exitStatus() const { return EXIT_SUCCESS; }

}  // namespace korvel::ui
