// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

namespace korvel::ui {

/// The devices to record from; the one that is chosen is remembered.
class InputList final : public QComboBox {
  Q_OBJECT

 public:
  explicit InputList(QWidget* parent = nullptr);

  /// Asks the system for them anew.
  void list();
};

}  // namespace korvel::ui
