// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <future>
#include <string>
#include <vector>

#include "workflow/session/SelfCheck.h"

class QTreeWidget;

namespace korvel::ui {

/// Tries out the parts of the program, one after the other: a tick, or what is wrong with it.
class SelfCheckDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit SelfCheckDialog(QWidget* parent = nullptr);
  /// Waits for the part that is being tried.
  ~SelfCheckDialog() override = default;

 private:
  void runNext();
  void awaitResult();
  void showResult(const SelfCheck& check, bool good, const QString& text);
  void runHere(const SelfCheck& check);

  std::vector<SelfCheck> m_checks;
  std::size_t m_next = 0;
  QTreeWidget* m_results;
  std::future<platform::UserText> m_result;
};

}  // namespace korvel::ui
