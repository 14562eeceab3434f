// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace korvel {
class QBCommand;
}

namespace korvel::ui {

/// One job of the list. The session keeps the job for as long as it is listed.
class JobRow final : public QWidget {
  Q_OBJECT

 public:
  explicit JobRow(QBCommand& job, QWidget* parent = nullptr);

  const QBCommand& job() const { return m_job; }
  /// Shows how far the job is; answers whether it still runs.
  bool update();

 signals:
  /// A button was pressed.
  void acted();

 private:
  QBCommand& m_job;
  QLabel* m_title;
  QProgressBar* m_progress;
  QPushButton* m_keep;
  QPushButton* m_drop;
};

}  // namespace korvel::ui
