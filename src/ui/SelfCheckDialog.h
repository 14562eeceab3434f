// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QTreeWidget;

namespace korvel::ui {

/// Tries out the parts of the program, one after the other: a tick, or what is wrong with it.
class SelfCheckDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit SelfCheckDialog(QWidget* parent = nullptr);

 private:
  void runNext();

  QTreeWidget* m_results;
  std::size_t m_next = 0;
};

}  // namespace korvel::ui
