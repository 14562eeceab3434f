// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "workflow/session/SessionViews.h"

namespace korvel::ui {

/// Asks where to write a file, beginning in the folder that was chosen last, at first the working
/// directory.
class SaveFilePanel final : public SavePanel {
 public:
  /// The dialog stands over the window.
  explicit SaveFilePanel(QWidget* window) : m_window(window) {}

  std::optional<std::string> chooseFile(const std::string& proposedName) override;
  std::string exportFolder() const override;

 private:
  QWidget* m_window;
};

}  // namespace korvel::ui
