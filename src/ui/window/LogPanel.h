// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

#include "workflow/session/SessionViews.h"

namespace korvel::ui {

/// The log: a line for each step or result, the newest last. Older lines are dropped in the end.
class LogPanel final : public QPlainTextEdit, public OutputView {
  Q_OBJECT

 public:
  explicit LogPanel(QWidget* parent = nullptr);

  void addLogText(const platform::UserText& text) override;
};

}  // namespace korvel::ui
