// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/SelfCheckDialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QScreen>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <chrono>

#include "ui/desktop/Synthesizers.h"
#include "ui/desktop/TextSize.h"
#include "ui/desktop/Translated.h"

namespace korvel::ui {
namespace {

constexpr int kColumnsOfCheck = 80;
constexpr int kLinesOfCheck = 16;
constexpr std::chrono::milliseconds kPatience{20};

}  // namespace

SelfCheckDialog::SelfCheckDialog(QWidget* parent)
    : QDialog(parent), m_checks(selfChecks(chosenSoundFont())), m_results(new QTreeWidget) {
  setWindowTitle(tr("Self Check"));
  resize(sizeOfText(*this, kColumnsOfCheck, kLinesOfCheck));
  m_results->setHeaderLabels({tr("Part"), tr("Result")});
  m_results->setRootIsDecorated(false);
  m_results->header()->setStretchLastSection(false);
  m_results->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  m_results->setAccessibleName(tr("Results of the self check"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_results);
  column->addWidget(buttons);
  QTimer::singleShot(0, this, &SelfCheckDialog::runNext);
}

/// Each result is drawn before the next part is tried.
void SelfCheckDialog::runNext() {
  if (m_next == m_checks.size()) return;
  const SelfCheck& check = m_checks[m_next];
  if (!check.runBeside) return runHere(check);
  m_result = std::async(std::launch::async, check.runBeside);
  awaitResult();
}

void SelfCheckDialog::awaitResult() {
  if (m_result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
    QTimer::singleShot(kPatience, this, &SelfCheckDialog::awaitResult);
    return;
  }
  const SelfCheck& check = m_checks[m_next];
  try {
    showResult(check, true, translated(m_result.get()));
  } catch (const std::exception&) {
    runHere(check);
  }
}

void SelfCheckDialog::runHere(const SelfCheck& check) {
  try {
    showResult(check, true, translated(check.run()));
  } catch (const std::exception& problem) {
    showResult(check, false, translated(problem));
  }
}

void SelfCheckDialog::showResult(const SelfCheck& check, bool good, const QString& text) {
  const QString mark = good ? tr("✓ %1") : tr("✗ %1");
  new QTreeWidgetItem(m_results, {mark.arg(translated(check.title)), text});
  ++m_next;
  QTimer::singleShot(0, this, &SelfCheckDialog::runNext);
}

}  // namespace korvel::ui
