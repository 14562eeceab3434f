// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/hearing/StepsDialog.h"

#include <QCoreApplication>
#include <QProgressDialog>

namespace korvel::ui {
namespace {

constexpr int kStepsOfBar = 100;
constexpr int kMillisecondsToShow = 500;

/// The texts of this file, for its translators.
struct Steps {
  Q_DECLARE_TR_FUNCTIONS(Steps)
};

}  // namespace

bool workThrough(platform::Slices work, const QString& title, QWidget* parent) {
  QProgressDialog progress(title, Steps::tr("Cancel"), 0, kStepsOfBar, parent);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kMillisecondsToShow);
  while (work.next()) {
    progress.setValue(static_cast<int>(work.done() * (kStepsOfBar - 1)));
    if (progress.wasCanceled()) return false;
  }
  return true;
}

}  // namespace korvel::ui
