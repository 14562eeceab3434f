// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

#include "workflow/session/SessionViews.h"

namespace korvel::ui {

/// A window of its own with the help, which stays open beside the work until Escape closes it.
class HelpWindow final : public QTextBrowser, public HelpView {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);

  /// Markdown. Shows the window.
  void setContent(const std::string& content) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace korvel::ui
