// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/QuitQuestions.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QStringList>
#include <QTimer>
#include <chrono>

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

constexpr auto kLook = 100ms;

/// The texts of this file, for its translators.
struct Quit {
  Q_DECLARE_TR_FUNCTIONS(Quit)
};

}  // namespace

bool mayEndRecording(QWidget* window) {
  QMessageBox box(QMessageBox::Question, Quit::tr("Quit"),
                  Quit::tr("A recording is going on. Stop it? What was played is kept."),
                  QMessageBox::NoButton, window);
  const auto* stop = box.addButton(Quit::tr("Stop and Keep"), QMessageBox::AcceptRole);
  box.setEscapeButton(box.addButton(Quit::tr("Go On Recording"), QMessageBox::RejectRole));
  box.exec();
  return box.clickedButton() == stop;
}

Quitting askAboutImports(QWidget* window, const std::vector<ImportUnderWay>& imports) {
  QStringList titles;
  for (const ImportUnderWay& each : imports) titles.append(toText(each.title));
  QMessageBox box(QMessageBox::Question, Quit::tr("Quit"),
                  Quit::tr("Not heard to the end yet: %1").arg(titles.join(", ")),
                  QMessageBox::NoButton, window);
  const auto* keep = box.addButton(Quit::tr("Keep What Was Heard"), QMessageBox::AcceptRole);
  auto* later = box.addButton(Quit::tr("Go On at the Next Start"), QMessageBox::AcceptRole);
  box.setDefaultButton(later);
  box.setEscapeButton(box.addButton(Quit::tr("Do Not Quit"), QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == keep) return Quitting::keepHeard;
  return box.clickedButton() == later ? Quitting::goOnLater : Quitting::notNow;
}

void waitForImports(QWidget* window) {
  QProgressDialog dialog(Quit::tr("Keeping what was heard ..."), {}, 0, 0, window);
  dialog.setWindowTitle(Quit::tr("Quit"));
  dialog.setWindowModality(Qt::ApplicationModal);
  QTimer clock;
  QObject::connect(&clock, &QTimer::timeout, &dialog, [&dialog] {
    if (ImportDesk::running().empty()) dialog.accept();
  });
  clock.start(kLook);
  dialog.exec();
}

}  // namespace korvel::ui
