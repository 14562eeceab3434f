// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SelfCheckDialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QScreen>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/Synthesizers.h"
#include "ui/Text.h"
#include "ui/Wording.h"
#include "workflow/SelfCheck.h"

namespace korvel::ui {
namespace {

constexpr int kColumns = 80;
constexpr int kLines = 16;

struct Outcome {
  bool good;
  QString text;
};

Outcome outcomeOf(const SelfCheck& check) {
  try {
    return {true, toText(check.run())};
  } catch (const std::exception& problem) {
    return {false, toText(problem.what())};
  }
}

}  // namespace

SelfCheckDialog::SelfCheckDialog(QWidget* parent) : QDialog(parent), m_results(new QTreeWidget) {
  setWindowTitle(tr("Self Check"));
  const QFontMetrics metrics(font());
  const QSize wanted(kColumns * metrics.horizontalAdvance('m'), kLines * metrics.lineSpacing());
  resize(wanted.boundedTo(screen()->availableSize()));
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
  const auto checks = selfChecks(chosenSoundFont());
  if (m_next == checks.size()) return;
  const SelfCheck& check = checks[m_next++];
  const Outcome outcome = outcomeOf(check);
  const QString mark = outcome.good ? tr("✓ %1") : tr("✗ %1");
  const QString title = QCoreApplication::translate("SelfCheck", check.title.c_str());
  new QTreeWidgetItem(m_results, {mark.arg(title), worded(outcome.text)});
  QTimer::singleShot(0, this, &SelfCheckDialog::runNext);
}

}  // namespace korvel::ui
