// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "ui/dialogs/hearing/HearingChoice.h"

namespace korvel::ui {

/// How a part of a recording is to be heard again.
class HearAgainDialog final : public QDialog {
  Q_OBJECT

 public:
  /// It begins with these settings.
  explicit HearAgainDialog(const precise::Settings& settings, QWidget* parent = nullptr);

  precise::Settings settings() const { return m_choice->settings(); }

 private:
  HearingChoice* m_choice;
};

}  // namespace korvel::ui
