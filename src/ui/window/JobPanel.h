// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>
#include <QTimer>
#include <cstddef>
#include <vector>

#include "workflow/session/SessionViews.h"

class QPushButton;
class QVBoxLayout;

namespace korvel {
class QBCommand;
}

namespace korvel::ui {

class JobRow;

/// The session's jobs, the newest first, each with its progress and with what can be done to it.
class JobPanel final : public QScrollArea, public BatchView {
  Q_OBJECT

 public:
  explicit JobPanel(QWidget* parent = nullptr);
  ~JobPanel() override;

  void reload() override;

 signals:
  void jobAdded();
  /// More or fewer jobs run than before.
  void runningChanged();

 private:
  void update();
  void clear();

  QPushButton* m_clear;
  QVBoxLayout* m_rows;
  std::vector<JobRow*> m_jobs;
  std::ptrdiff_t m_running = 0;
  QTimer m_clock;
};

}  // namespace korvel::ui
