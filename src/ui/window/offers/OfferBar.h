// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <functional>

namespace korvel::ui {

/// A question on a bar in the window, which nothing waits for. Goes with its answer.
class OfferBar final : public QFrame {
  Q_OBJECT

 public:
  /// accept: what a Yes does.
  OfferBar(const QString& question, std::function<void()> accept, QWidget* parent = nullptr);
};

}  // namespace korvel::ui
