// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

namespace korvel::ui {

/// A menu that says on top why nothing can be done in it, whenever that is so. While it is closed
/// all entries are enabled, so that their keys can tell why, too.
class ReasonedMenu : public QMenu {
  Q_OBJECT

 protected:
  ReasonedMenu(const QString& title, QWidget* parent);

  /// Before it is shown. why: empty when something can be done.
  void showReason(const QString& why);

 private:
  void enableAll(bool enabled);

  QAction* m_reason;
};

}  // namespace korvel::ui
